#include "host/core/Utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

namespace host {
namespace {

TEST(Utf8Test, EveryCodePointRoundTrips) {
    std::wstring all;
    for (wchar_t cp = 0; cp <= 0x10FFFF; ++cp) all.push_back(cp);
    const std::string utf8 = Utf8FromWide(all);
    // 1, 2, 3 and 4 bytes for the code points below 0x80, 0x800, 0x10000 and above.
    EXPECT_EQ(utf8.size(), 0x80 + (0x800 - 0x80) * 2 + (0x10000 - 0x800) * 3 + 0x100000 * 4);
    EXPECT_TRUE(WideFromUtf8(utf8) == all);
    EXPECT_TRUE(Utf8ToWideStrict(utf8) == all);
}

TEST(Utf8Test, KnownEncodings) {
    const std::pair<wchar_t, std::string> cases[] = {
        {0x41, "A"},
        {0xE9, "\xC3\xA9"},
        {0x7FF, "\xDF\xBF"},
        {0x20AC, "\xE2\x82\xAC"},
        {0xD800, "\xED\xA0\x80"},
        {0x1F600, "\xF0\x9F\x98\x80"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
        {0x110000, "\xEF\xBF\xBD"},  // beyond Unicode: U+FFFD
        {-1, "\xEF\xBF\xBD"},
    };
    for (const auto& [wide, utf8] : cases) {
        EXPECT_EQ(Utf8FromWide(std::wstring(1, wide)), utf8) << static_cast<int32_t>(wide);
    }
}

TEST(Utf8Test, MalformedInputBecomesReplacementCharacters) {
    const std::wstring r(1, 0xFFFD);
    const std::pair<std::string, std::wstring> cases[] = {
        {"\xC0\x80", r + r},                  // overlong NUL
        {"\xE0\x80\x80", r + r + r},          // overlong three-byte form
        {"\xF0\x8F\xBF\xBF", r + r + r + r},  // overlong four-byte form
        {"\xE2\x82", r},                      // truncated: one maximal subpart
        {"\xE2\x82"
         "A",
         r + L"A"},
        {"\x80", r},  // lone continuation
        {"a\xBF\xBF"
         "b",
         L"a" + r + r + L"b"},
        {"\xF4\x90\x80\x80", r + r + r + r},  // above 0x10FFFF
        {"\xFF", r},
        {"\xC3"
         "\xE2\x82\xAC",
         r + L"\u20AC"},  // a lead byte starts a fresh sequence
    };
    for (const auto& [utf8, lenient] : cases) {
        EXPECT_TRUE(WideFromUtf8(utf8) == lenient) << testing::PrintToString(utf8);
        EXPECT_FALSE(Utf8ToWideStrict("ok" + utf8).has_value()) << testing::PrintToString(utf8);
    }
}

}  // namespace
}  // namespace host
