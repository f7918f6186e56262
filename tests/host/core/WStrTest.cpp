#include "host/core/WStr.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

#include "host/core/RangeException.h"

namespace host {

void PrintTo(const WStr& s, std::ostream* os) {
    *os << '"' << s.ToUtf8() << '"';
}

namespace {

TEST(WStrTest, ConversionOperatorsAndHash) {
    EXPECT_TRUE(WStr(static_cast<const wchar_t*>(nullptr)).isNull());
    EXPECT_EQ(WStr().data()[0], L'\0');
    const WStr s = WStr::FromUtf8("caf\xC3\xA9 \xE2\x82\xAC\xFF");
    EXPECT_EQ(s, L"caf\u00E9 \u20AC\uFFFD");
    EXPECT_EQ(s.ToUtf8(), "caf\xC3\xA9 \xE2\x82\xAC\xEF\xBF\xBD");

    WStr t = L"ab";
    t += L'c';
    EXPECT_EQ(t + L"d" + WStr(L"e"), L"abcde");
    EXPECT_LT(WStr(L"ab"), WStr(L"abc"));
    EXPECT_FALSE(WStr(L"b") < WStr(L"abc"));
    EXPECT_THROW(static_cast<void>(t[3]), RangeException);
    EXPECT_THROW(static_cast<void>(t[-1]), RangeException);
    EXPECT_EQ((std::unordered_set<WStr>{L"one", L"two", L"one"}).size(), 2u);
}

TEST(WStrTest, PrintfReplacesAndGrows) {
    WStr s = L"old contents";
    EXPECT_EQ(s.printf(L"%d-%ls-%s", 42, L"wide", "narrow"), 14);
    EXPECT_EQ(s, L"42-wide-narrow");
    const std::wstring longText(5000, L'q');
    EXPECT_EQ(s.printf(L"[%ls]", longText.c_str()), 5002);
    EXPECT_EQ(s, WStr(L"[" + longText + L"]"));
    // A narrow argument that cannot be converted in the C locale fails and leaves nothing.
    EXPECT_EQ(s.printf(L"%s", "\xFF"), -1);
    EXPECT_TRUE(s.isNull());
}

TEST(WStrTest, ClampedRanges) {
    const WStr s = L"abcdef";
    struct Case {
        int start, n;
        const wchar_t* sub;
    };
    const Case cases[] = {{0, 2, L"ab"}, {4, -1, L"ef"}, {4, 99, L"ef"},    {-3, 2, L"ab"},
                          {6, 1, L""},   {10, 1, L""},   {0, -5, L"abcdef"}};
    for (const Case& c : cases) {
        EXPECT_EQ(s.Substr(c.start, c.n), c.sub) << c.start << "," << c.n;
        // remove() takes out exactly what Substr() returns.
        WStr r = s;
        r.remove(c.start, c.n);
        const auto at = static_cast<int>(s.str().find(c.sub));
        EXPECT_EQ(r, s.Substr(0, at) + s.Substr(at + WStr(c.sub).Length()));
    }
}

TEST(WStrTest, SearchCaseAndResize) {
    const WStr s = L"a/b/c";
    EXPECT_EQ(s.first(L'/'), 1);
    EXPECT_EQ(s.last(L'/'), 3);
    EXPECT_EQ(s.last(L'c'), 4);
    EXPECT_EQ(s.first(L'x'), -1);
    EXPECT_EQ(s.last(L'x'), -1);

    WStr t = L"MiXeD 123_z";
    EXPECT_EQ(t.toLower(), L"mixed 123_z");
    EXPECT_EQ(t.toUpper(), L"MIXED 123_Z");
    t.Resize(3);
    EXPECT_EQ(t, L"MIX");
    t.Resize(5);
    EXPECT_EQ(t.Length(), 5);
    EXPECT_EQ(t.data()[4], L'\0');
}

}  // namespace
}  // namespace host
