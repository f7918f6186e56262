#include "host/classes/SpanTable.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "host/classes/IKeyControl.h"

namespace host {
namespace {

// Channels keyed at shared times, with now and then a stepped or custom-length knot, so
// that some spans are not cubics in every channel.
std::vector<BezierChannel> SharedChannels(std::mt19937& rng, int count,
                                          const std::vector<TimeValue>& times) {
    std::uniform_real_distribution<float> value(-2.0f, 2.0f);
    std::uniform_int_distribution<int> odd(0, 99);
    std::vector<BezierChannel> channels(static_cast<size_t>(count));
    for (BezierChannel& channel : channels) {
        std::vector<BezierKnot> knots;
        for (TimeValue t : times) {
            BezierKnot knot;
            knot.time = t;
            knot.val = value(rng);
            knot.intan = value(rng) * 0.01f;
            knot.outtan = value(rng) * 0.01f;
            if (odd(rng) == 0) knot.flags = SetOutTanType(0, BEZKEY_STEP);
            if (odd(rng) == 1) knot.outLength = 0.5f;
            knots.push_back(knot);
        }
        channel.Set(knots);
    }
    return channels;
}

// A packed read gives each channel's own value to the bit, or declines where a channel
// is not a cubic or t lies outside the keys; in playback order, backwards and at random.
TEST(SpanTable, ReadsEveryChannelAsTheChannelReadsIt) {
    std::mt19937 rng(5);
    const std::vector<TimeValue> times = {-160, 0, 160, 400, 401, 1000, 2000};
    for (int count : {1, 4, 8, 9}) {
        std::vector<BezierChannel> channels = SharedChannels(rng, count, times);
        std::vector<const BezierChannel*> pointers;
        for (const BezierChannel& channel : channels) pointers.push_back(&channel);
        SpanTable table;
        ASSERT_TRUE(table.Pack(pointers.data(), count));
        std::vector<TimeValue> reads;
        for (TimeValue t = -300; t <= 2100; t += 7) reads.push_back(t);
        for (TimeValue t = 2100; t >= -300; t -= 13) reads.push_back(t);
        for (int n = 0; n < 200; ++n) reads.push_back(TimeValue(rng() % 2400) - 300);
        int answered = 0;
        for (TimeValue t : reads) {
            float values[SpanTable::kLanes];
            if (!table.Read(t, values)) continue;
            ++answered;
            ASSERT_TRUE(t >= times.front() && t < times.back()) << t;
            for (int i = 0; i < count; ++i) {
                const float own = channels[size_t(i)].Interpolate(t);
                ASSERT_EQ(std::memcmp(&own, &values[i], sizeof own), 0) << i << " at " << t;
            }
        }
        EXPECT_GT(answered, int(reads.size()) / 8);
    }
}

TEST(SpanTable, ChannelsKeyedAtOtherTimesAreNotPacked) {
    std::mt19937 rng(9);
    std::vector<BezierChannel> a = SharedChannels(rng, 1, {0, 100, 200});
    std::vector<BezierChannel> b = SharedChannels(rng, 1, {0, 150, 200});
    std::vector<BezierChannel> c = SharedChannels(rng, 1, {0, 100});
    std::vector<BezierChannel> one = SharedChannels(rng, 1, {0});
    SpanTable table;
    const BezierChannel* moved[] = {&a[0], &b[0]};
    EXPECT_FALSE(table.Pack(moved, 2));
    EXPECT_TRUE(table.Empty());
    const BezierChannel* fewer[] = {&a[0], &c[0]};
    EXPECT_FALSE(table.Pack(fewer, 2));
    const BezierChannel* none[] = {&one[0]};
    EXPECT_FALSE(table.Pack(none, 1));
    EXPECT_TRUE(table.Empty());
}

}  // namespace
}  // namespace host
