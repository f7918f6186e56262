# Build helpers shared by every folder: one call a target, no repeated blocks.

find_program(ZV_CCACHE ccache)
if(ZV_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${ZV_CCACHE}")
endif()

add_library(zv_options INTERFACE)
target_compile_options(zv_options INTERFACE -Wall -Wextra -Wpedantic -Werror)
target_include_directories(zv_options INTERFACE "${PROJECT_SOURCE_DIR}")
if(ZV_SANITIZE)
    set(_zv_san -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(zv_options INTERFACE ${_zv_san})
    target_link_options(zv_options INTERFACE ${_zv_san})
endif()
# Fuzzing: every library carries libFuzzer's coverage instrumentation; only the fuzz
# targets link libFuzzer itself.
if(ZV_BUILD_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "ZV_BUILD_FUZZ needs clang (the \"fuzz\" preset sets it)")
    endif()
    target_compile_options(zv_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# zv_add_library(name SOURCES ... [LINKS ...])
function(zv_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC zv_options ${ARG_LINKS})
endfunction()

# zv_add_test(name LABEL label SOURCES ... [LINKS ...]): one GoogleTest executable,
# each of its tests registered with ctest under the given label.
function(zv_add_test name)
    cmake_parse_arguments(ARG "" "LABEL" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zv_options ${ARG_LINKS} GTest::gtest_main GTest::gmock)
    gtest_discover_tests(${name} PROPERTIES LABELS ${ARG_LABEL} DISCOVERY_TIMEOUT 60)
endfunction()

# zv_add_bench(name SOURCES ... [LINKS ...] [SMOKE_FILTER regex]): one Google Benchmark
# executable, also run once in ctest (label "bench") so that a broken benchmark fails the
# build's tests; SMOKE_FILTER keeps that run to the cases it matches (small sizes).
function(zv_add_bench name)
    cmake_parse_arguments(ARG "" "SMOKE_FILTER" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE zv_options ${ARG_LINKS} benchmark::benchmark_main)
    if(ZV_BUILD_TESTS)
        set(_filter "")
        if(ARG_SMOKE_FILTER)
            set(_filter "--benchmark_filter=${ARG_SMOKE_FILTER}")
        endif()
        add_test(NAME ${name}.smoke COMMAND ${name} --benchmark_min_time=0.001 ${_filter})
        set_tests_properties(${name}.smoke PROPERTIES LABELS bench)
    endif()
endfunction()

# zv_add_toolkit_library(name SOURCES ...): one toolkit subsystem, compiled
# position-independent so that the plug-in library can hold it. It links no host
# library: the scene model's code comes from the process that loads the plug-in, and a
# test that links the subsystem directly links the host libraries it needs itself.
# Includes are written from the toolkit's root ("controllers/StaticFloat.h").
function(zv_add_toolkit_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES" ${ARGN})
    add_library(${name} OBJECT ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(${name} PUBLIC zv_options)
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
endfunction()

# zv_export_host(target): an executable that loads plug-ins keeps the whole scene model
# (not only what it calls itself) and exports it, so that a plug-in finds the host's
# symbols in the process.
function(zv_export_host target)
    set_target_properties(${target} PROPERTIES ENABLE_EXPORTS ON)
    target_link_libraries(${target} PRIVATE zv_host_script zv_host_io zv_host_classes)
    target_link_options(${target} PRIVATE
        "LINKER:--whole-archive"
        $<TARGET_FILE:zv_host_script> $<TARGET_FILE:zv_host_io> $<TARGET_FILE:zv_host_classes> $<TARGET_FILE:zv_host_object>
        $<TARGET_FILE:zv_host_math> $<TARGET_FILE:zv_host_core>
        "LINKER:--no-whole-archive")
endfunction()
