#include "host/core/Utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace host {

TEST(Utf8Test, EveryCodePointRoundTrips) {
    std::wstring all;
    for (wchar_t cp = 0; cp <= 0x10FFFF; ++cp) all.push_back(cp);
    const std::string utf8 = Utf8FromWide(all);
    EXPECT_TRUE(WideFromUtf8(utf8) == all && Utf8ToWideStrict(utf8) == all);
    // Known bytes at the length boundaries; values outside Unicode become U+FFFD.
    EXPECT_EQ(Utf8FromWide(std::wstring{0x41, 0x7FF, 0xD800, 0x1F600, 0x10FFFF, 0x110000, -1}),
              "A\xDF\xBF\xED\xA0\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\xEF\xBF\xBD\xEF\xBF\xBD");
}

// Overlong, truncated, stray, too large or never-leading bytes give one U+FFFD (written '?') per
// maximal ill-formed subpart; a lead byte inside a sequence starts a fresh one.
TEST(Utf8Test, MalformedInputBecomesReplacementCharacters) {
    const std::pair<std::string, std::wstring> cases[] = {
        {"\xC0\x80", L"??"},        {"\xE0\x80\x80", L"???"},        {"\xF0\x8F\xBF\xBF", L"????"},
        {"\xE2\x82", L"?"},         {"\xE2\x82\x41", L"?A"},         {"\x80", L"?"},
        {"a\xBF\xBF\x62", L"a??b"}, {"\xF4\x90\x80\x80", L"????"},   {"\xF5\x80\x80\x80", L"????"},
        {"\xFF\xFE", L"??"},        {"\xC3\xE2\x82\xAC", L"?\u20AC"}};
    for (const auto& [utf8, lenient] : cases) {
        std::wstring expected = lenient;
        std::replace(expected.begin(), expected.end(), L'?', wchar_t{0xFFFD});
        EXPECT_TRUE(WideFromUtf8(utf8) == expected) << testing::PrintToString(utf8);
        EXPECT_FALSE(Utf8ToWideStrict("ok" + utf8).has_value()) << testing::PrintToString(utf8);
    }
}

}  // namespace host
