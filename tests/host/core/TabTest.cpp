#include "host/core/Tab.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace host {
namespace {

Tab<int> Make(std::vector<int> values) {
    Tab<int> tab;
    tab.Append(static_cast<int>(values.size()), values.data());
    return tab;
}

std::vector<int> Values(const Tab<int>& tab) {
    return {tab.begin(), tab.end()};
}

TEST(TabTest, IndexOutsideRangeThrowsWithHostText) {
    Tab<int> tab = Make({1, 2, 3});
    for (int bad : {-1, 3}) {
        try {
            tab[bad] = 0;
            ADD_FAILURE() << "no exception for " << bad;
        } catch (const RangeException& e) {
            EXPECT_STREQ(e.what(), "Invalid index passed into a Tarnix SDK Tab::operator[]");
        }
        EXPECT_THROW(static_cast<void>(std::as_const(tab)[bad]), RangeException);
        EXPECT_THROW(tab.Addr(bad), RangeException);
    }
}

TEST(TabTest, AppendAndInsertFromItself) {
    Tab<int> tab = Make({1, 2, 3});
    tab.Shrink();  // full, so appending must reallocate under the source pointer
    EXPECT_EQ(tab.Append(3, tab.Addr(0)), 3);
    EXPECT_EQ(tab.Append(2, tab.Addr(4), 100), 6);
    EXPECT_GE(tab.Capacity(), 8 + 100);
    EXPECT_EQ(tab.Insert(0, 2, tab.Addr(6)), 0);
    EXPECT_EQ(Values(tab), (std::vector<int>{2, 3, 1, 2, 3, 1, 2, 3, 2, 3}));
}

TEST(TabTest, InsertAndDeleteAtTheEdges) {
    const int x[] = {8, 9};
    Tab<int> tab = Make({1, 2, 3});
    EXPECT_EQ(tab.Insert(0, 1, x), 0);
    EXPECT_EQ(tab.Insert(4, 2, x), 4);
    EXPECT_EQ(Values(tab), (std::vector<int>{8, 1, 2, 3, 8, 9}));
    EXPECT_THROW(tab.Insert(-1, 1, x), RangeException);
    EXPECT_THROW(tab.Insert(7, 1, x), RangeException);

    struct Case {
        int start, n;
        std::vector<int> left;
    };
    const Case deletes[] = {
        {0, 1, {1, 2, 3, 8, 9}}, {4, 100, {8, 1, 2, 3}}, {1, 3, {8, 8, 9}},
        {-1, 2, Values(tab)},    {6, 1, Values(tab)},    {2, 0, Values(tab)},
    };
    for (const Case& c : deletes) {
        Tab<int> copy = tab;
        EXPECT_EQ(copy.Delete(c.start, c.n), static_cast<int>(c.left.size()));
        EXPECT_EQ(Values(copy), c.left) << c.start << "," << c.n;
    }
}

TEST(TabTest, CountCapacityAndStableSort) {
    Tab<int> tab = Make({5, 6});
    tab.SetCount(4);
    EXPECT_EQ(Values(tab), (std::vector<int>{5, 6, 0, 0}));
    tab.Resize(1);  // never below the count
    EXPECT_EQ(tab.Capacity(), 4);
    tab.Resize(50);
    EXPECT_EQ(tab.Capacity(), 50);

    // Keys 0..4 in the hundreds, insertion order below: a stable sort by key orders the values.
    tab.ZeroCount();
    for (int i = 0; i < 40; ++i) {
        const int item = (i * 7) % 5 * 100 + i;
        tab.Append(1, &item);
    }
    tab.Sort([](const void* a, const void* b) {
        return *static_cast<const int*>(a) / 100 - *static_cast<const int*>(b) / 100;
    });
    std::vector<int> expected = Values(tab);
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Values(tab), expected);
}

}  // namespace
}  // namespace host
