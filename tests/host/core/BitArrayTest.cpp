#include "host/core/BitArray.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <vector>

#include "host/core/RangeException.h"

namespace host {

static BitArray Thirds(int size) {
    BitArray bits(size);
    for (int i = 0; i < size; i += 3) bits.Set(i);
    return bits;
}

// Bits past the size must stay clear through every whole-array operation, resize and reload.
TEST(BitArrayTest, WholeArrayOperations) {
    for (int size : {0, 1, 7, 8, 63, 64, 65, 130}) {
        BitArray all(size);
        all.SetAll();
        EXPECT_EQ(all.NumberSet(), size);
        EXPECT_EQ(all.AnyBitSet(), size > 0);
        EXPECT_TRUE((~all).IsEmpty()) << size;

        const BitArray thirds = Thirds(size);
        BitArray x = thirds;
        EXPECT_EQ(x ^= all, ~thirds);
        EXPECT_EQ(x |= thirds, all);
        EXPECT_EQ(x &= thirds, thirds);
        x.SetSize(size);
        EXPECT_EQ(x, BitArray(size));
        x = Thirds(130);
        x.SetSize(size, 1);
        EXPECT_EQ(x, thirds);

        BitArray loaded;
        const std::vector<uint8_t> data = thirds.Save();
        EXPECT_TRUE(loaded.Load(data.data(), data.size()) && loaded == thirds);
    }
}

TEST(BitArrayTest, SingleBitsAndRangeErrors) {
    BitArray bits = Thirds(70);
    bits.Clear(63);
    bits.Set(64, true);
    EXPECT_TRUE(bits.NumberSet() == 24 && bits[64] && !bits[63] && bits[69]);
    EXPECT_THAT([&] { bits.Set(70); },
                testing::ThrowsMessage<RangeException>(
                    testing::StrEq("Invalid index passed into a Tarnix SDK BitArray::operator[]")));
    EXPECT_THROW(bits.Clear(-1), RangeException);
    EXPECT_THROW(static_cast<void>(bits[70]), RangeException);
}

// Load() rejects, leaving the array as it was: too long, padding bit 11 or 15 set, a count
// needing a byte more or less or above INT_MAX, and every proper prefix of good data.
TEST(BitArrayTest, SavedLayoutAndBadData) {
    const std::vector<uint8_t> thirds11 = {11, 0, 0, 0, 0x49, 0x02};  // bits 0, 3, 6, 9
    EXPECT_EQ(Thirds(11).Save(), thirds11);
    std::vector<std::vector<uint8_t>> bad = {
        {11, 0, 0, 0, 0x49, 0x02, 0}, {11, 0, 0, 0, 0x49, 0x0A}, {11, 0, 0, 0, 0x49, 0x82},
        {17, 0, 0, 0, 0x49, 0x02},    {8, 0, 0, 0, 0x49, 0x02},  {0xFF, 0xFF, 0xFF, 0xFF}};
    for (size_t n = 0; n < thirds11.size(); ++n) bad.emplace_back(&thirds11[0], &thirds11[n]);
    BitArray bits = Thirds(70);
    for (const auto& data : bad) {
        EXPECT_FALSE(bits.Load(data.data(), data.size())) << testing::PrintToString(data);
        EXPECT_EQ(bits, Thirds(70));
    }
}

}  // namespace host
