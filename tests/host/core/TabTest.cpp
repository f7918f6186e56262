#include "host/core/Tab.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace host {

static Tab<int> Make(std::vector<int> values) {
    Tab<int> tab;
    tab.Append(static_cast<int>(values.size()), values.data());
    return tab;
}

static std::vector<int> Values(const Tab<int>& tab) {
    return {tab.begin(), tab.end()};
}

// Sources inside the Tab survive reallocation (appends) and shifting (insert); capacities exact.
TEST(TabTest, GrowingFromItselfAndCapacity) {
    Tab<int> tab = Make({1, 2, 3});
    tab.Shrink();
    EXPECT_EQ(tab.Append(3, tab.Addr(0)), 3);
    EXPECT_EQ(tab.Append(1, tab.Addr(5), 100), 6);
    EXPECT_GE(tab.Capacity(), 7 + 100);
    EXPECT_EQ(tab.Insert(1, 2, tab.Addr(4)), 1);
    EXPECT_EQ(tab.Append(2, nullptr), 9);
    tab.SetCount(12);
    EXPECT_EQ(Values(tab), (std::vector<int>{1, 2, 3, 2, 3, 1, 2, 3, 3, 0, 0, 0}));
    tab.Resize(100);
    EXPECT_EQ(tab.Capacity(), 100);
    tab.Shrink();
    EXPECT_EQ(tab.Capacity(), 12);
}

TEST(TabTest, PositionsAreCheckedOrClamped) {
    const int x[] = {8, 9};
    Tab<int> tab = Make({1, 2, 3});
    EXPECT_THAT([&] { tab[3] = 0; },
                testing::ThrowsMessage<RangeException>(
                    testing::StrEq("Invalid index passed into a Tarnix SDK Tab::operator[]")));
    EXPECT_THROW(tab.Addr(-1), RangeException);
    for (int bad : {-1, 4}) EXPECT_THROW(tab.Insert(bad, 1, x), RangeException);
    EXPECT_EQ(tab.Insert(0, 1, x), 0);
    EXPECT_EQ(tab.Insert(4, 2, x), 4);

    const std::tuple<int, int, std::vector<int>> deletes[] = {
        {0, 1, {1, 2, 3, 8, 9}}, {4, 100, {8, 1, 2, 3}}, {1, 3, {8, 8, 9}},
        {-1, 2, Values(tab)},    {7, 1, Values(tab)},    {2, -1, Values(tab)}};
    for (const auto& [start, n, left] : deletes) {
        Tab<int> copy = tab;
        EXPECT_EQ(copy.Delete(start, n), static_cast<int>(left.size()));
        EXPECT_EQ(Values(copy), left) << start << "," << n;
    }
}

// Keys 0..4 in the hundreds, insertion order below: a stable sort by key orders the values.
TEST(TabTest, StableSort) {
    std::vector<int> items;
    for (int i = 0; i < 40; ++i) items.push_back((i * 7) % 5 * 100 + i);
    Tab<int> tab = Make(items);
    tab.Sort([](const void* a, const void* b) {
        return *static_cast<const int*>(a) / 100 - *static_cast<const int*>(b) / 100;
    });
    std::sort(items.begin(), items.end());
    EXPECT_EQ(Values(tab), items);
}

}  // namespace host
