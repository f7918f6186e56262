#include "host/core/BitArray.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "host/core/RangeException.h"

namespace host {
namespace {

const int kSizes[] = {0, 1, 7, 8, 63, 64, 65, 130};

// Bit i set when i % 3 == 0.
BitArray Thirds(int size) {
    BitArray bits(size);
    for (int i = 0; i < size; i += 3) bits.Set(i);
    return bits;
}

int CountByIndex(const BitArray& bits) {
    int n = 0;
    for (int i = 0; i < bits.GetSize(); ++i) n += bits[i] ? 1 : 0;
    return n;
}

TEST(BitArrayTest, WholeArrayOperationsStayWithinTheSize) {
    for (int size : kSizes) {
        BitArray all(size);
        EXPECT_TRUE(all.IsEmpty());
        all.SetAll();
        EXPECT_EQ(all.NumberSet(), size);
        EXPECT_EQ(all.AnyBitSet(), size > 0);
        EXPECT_TRUE((~all).IsEmpty()) << size;

        const BitArray thirds = Thirds(size);
        BitArray x = thirds;
        x ^= all;
        EXPECT_EQ(x, ~thirds);
        EXPECT_EQ(x.NumberSet(), size - CountByIndex(thirds));
        x |= thirds;
        EXPECT_EQ(x, all);
        x &= thirds;
        EXPECT_EQ(x, thirds);
    }
}

TEST(BitArrayTest, SingleBitsAndRangeErrors) {
    BitArray bits(70);
    bits.Set(69, true);
    bits.Set(64);
    bits.Clear(64);
    EXPECT_TRUE(bits[69]);
    EXPECT_FALSE(bits[64]);
    EXPECT_EQ(bits.NumberSet(), 1);
    for (int bad : {-1, 70}) {
        try {
            bits.Set(bad);
            ADD_FAILURE() << "no exception for " << bad;
        } catch (const RangeException& e) {
            EXPECT_STREQ(e.what(), "Invalid index passed into a Tarnix SDK BitArray::operator[]");
        }
        EXPECT_THROW(bits.Clear(bad), RangeException);
        EXPECT_THROW(static_cast<void>(bits[bad]), RangeException);
    }
}

TEST(BitArrayTest, SetSizeKeepsOrClears) {
    for (int size : kSizes) {
        BitArray kept = Thirds(130);
        kept.SetSize(size, 1);
        EXPECT_EQ(kept, Thirds(size));
        kept.SetSize(200, 1);  // regrowing must not bring back bits cut off above
        EXPECT_EQ(CountByIndex(kept), CountByIndex(Thirds(size))) << size;

        BitArray cleared = Thirds(130);
        cleared.SetSize(size);
        EXPECT_EQ(cleared, BitArray(size));
    }
}

// Loading known bytes pins the layout; the round trip then pins Save() to the same layout.
TEST(BitArrayTest, SaveLoadRoundTrip) {
    const std::vector<uint8_t> thirds11 = {11, 0, 0, 0, 0x49, 0x02};  // bits 0, 3, 6, 9
    BitArray bits;
    ASSERT_TRUE(bits.Load(thirds11.data(), thirds11.size()));
    EXPECT_EQ(bits, Thirds(11));
    for (int size : kSizes) {
        const std::vector<uint8_t> data = Thirds(size).Save();
        BitArray loaded(3);
        ASSERT_TRUE(loaded.Load(data.data(), data.size()));
        EXPECT_EQ(loaded, Thirds(size));
    }
}

// Each case departs from the well-formed {11, 0, 0, 0, 0x49, 0x02} above.
TEST(BitArrayTest, LoadRejectsBadDataAndKeepsTheArray) {
    const std::vector<std::vector<uint8_t>> bad = {
        {},
        {11, 0, 0},
        {11, 0, 0, 0, 0x49},           // truncated
        {11, 0, 0, 0, 0x49, 0x02, 0},  // too long
        {11, 0, 0, 0, 0x49, 0x0A},     // padding bit 11 set
        {11, 0, 0, 0, 0x49, 0x82},     // padding bit 15 set
        {17, 0, 0, 0, 0x49, 0x02},     // 17 bits need a third byte
        {0xFF, 0xFF, 0xFF, 0xFF},
    };
    const BitArray before = Thirds(70);
    for (const auto& data : bad) {
        BitArray bits = before;
        EXPECT_FALSE(bits.Load(data.data(), data.size())) << testing::PrintToString(data);
        EXPECT_EQ(bits, before);
    }
}

}  // namespace
}  // namespace host
