// libFuzzer target of the script interpreter: any bytes are read as script text (UTF-8)
// and, when they parse, run under a step limit against an empty scene. A script may
// fail in any way it likes, but only with a script error: no crash, hang or sanitizer
// report. The scene is reset after each input.
#include <cstdint>
#include <string_view>

#include "host/classes/HostClasses.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/script/Interpreter.h"
#include "host/script/ScriptRegistry.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool started = (host::StartHost(), true);
    (void)started;
    host::Interface& ip = *host::GetCOREInterface();
    {
        host::script::Interpreter in;
        // Enough for every conformance script; small enough that an input runs quickly.
        in.SetStepLimit(20000);
        host::script::Value result;
        host::script::ScriptFailure failure;
        const std::string_view bytes(reinterpret_cast<const char*>(data), size);
        in.Run(host::WStr::FromUtf8(bytes).str(), result, failure);
    }
    ip.Reset();
    ip.ClearListener();
    host::script::ScriptRegistry::Instance().ImporterParams().clear();
    return 0;
}
