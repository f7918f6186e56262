#include "host/core/WStr.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

#include "host/core/RangeException.h"

namespace host {

TEST(WStrTest, ConversionsOperatorsAndSearch) {
    EXPECT_TRUE(WStr(static_cast<const wchar_t*>(nullptr)).isNull());
    WStr s = WStr::FromUtf8("a/\xC3\xA9/\xFF");
    EXPECT_EQ(s.ToUtf8(), "a/\xC3\xA9/\xEF\xBF\xBD");
    EXPECT_EQ(std::pair(s.first(L'/'), s.last(L'/')), std::pair(1, 3));
    for (int bad : {-1, 5}) EXPECT_THROW(s[bad] = L'x', RangeException);

    s = WStr(L"Mi") + L'X' + L"eD" + static_cast<const wchar_t*>(nullptr) + WStr(L"_1");
    EXPECT_EQ(s.toLower().str(), L"mixed_1");
    EXPECT_EQ(s.toUpper().str(), L"MIXED_1");
    s.Resize(3);
    s.Resize(5);
    EXPECT_EQ(s.str(), std::wstring(L"MIX\0\0", 5));
}

TEST(WStrTest, PrintfReplacesAndGrows) {
    WStr s = L"old contents";
    EXPECT_EQ(s.printf(L"%d-%ls-%s", 42, L"wide", "narrow"), 14);
    EXPECT_EQ(s.str(), L"42-wide-narrow");
    EXPECT_EQ(s.printf(L"[%ls]", std::wstring(5000, L'q').c_str()), 5002);
    EXPECT_EQ(s.str(), L"[" + std::wstring(5000, L'q') + L"]");
    // A narrow argument that cannot be converted in the C locale fails and leaves nothing.
    EXPECT_EQ(s.printf(L"%s", "\xFF"), -1);
    EXPECT_TRUE(s.isNull());
}

// remove() must take out exactly what Substr() returns, located here by searching.
TEST(WStrTest, ClampedRanges) {
    const std::wstring s = L"abcdef";
    const std::tuple<int, int, std::wstring> cases[] = {
        {0, 2, L"ab"}, {4, -1, L"ef"}, {4, 99, L"ef"},    {-3, 2, L"ab"},
        {2, 0, L""},   {10, 1, L""},   {0, -5, L"abcdef"}};
    for (const auto& [start, n, sub] : cases) {
        EXPECT_EQ(WStr(s).Substr(start, n).str(), sub) << start << "," << n;
        EXPECT_EQ(WStr(s).remove(start, n).str(), std::wstring(s).erase(s.find(sub), sub.size()));
    }
}

}  // namespace host
