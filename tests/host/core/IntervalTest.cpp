#include "host/core/Interval.h"

#include <gtest/gtest.h>

namespace host {
namespace {

// Each intersection is checked against membership of both operands over a window of times.
TEST(IntervalTest, IntersectionTable) {
    struct Case {
        Interval a, b, expected;
    };
    const Case cases[] = {
        {{0, 10}, {5, 20}, {5, 10}},    // overlap
        {{0, 10}, {10, 20}, {10, 10}},  // touching ends: a single instant
        {{0, 10}, {11, 20}, NEVER},     // disjoint
        {FOREVER, {-7, 7}, {-7, 7}},    // FOREVER is neutral
        {NEVER, FOREVER, NEVER},
        {{5, 3}, FOREVER, NEVER},  // reversed bounds are empty
        {{TIME_NegInfinity, 0}, {0, TIME_PosInfinity}, {0, 0}},
    };
    for (const Case& c : cases) {
        const Interval got = c.a & c.b;
        EXPECT_EQ(got, c.b & c.a);
        // Empty results are normalised to NEVER's bounds.
        EXPECT_EQ(got.Start(), c.expected.Start());
        EXPECT_EQ(got.End(), c.expected.End());
        for (TimeValue t = -25; t <= 25; ++t) {
            EXPECT_EQ(got.InInterval(t), c.a.InInterval(t) && c.b.InInterval(t)) << t;
        }
    }
}

TEST(IntervalTest, BoundsEmptinessAndDuration) {
    for (const Interval& empty : {Interval(), NEVER, Interval(5, 3)}) {
        EXPECT_TRUE(empty.Empty());
        EXPECT_EQ(empty.Duration(), 0);
        EXPECT_EQ(empty, NEVER);
        for (TimeValue t : {TIME_NegInfinity, 3, 4, 5}) EXPECT_FALSE(empty.InInterval(t));
    }
    const Interval iv(-3, 7);
    EXPECT_TRUE(iv.InInterval(-3) && iv.InInterval(7));
    EXPECT_FALSE(iv.InInterval(-4) || iv.InInterval(8));
    EXPECT_EQ(iv.Duration(), 11);
    EXPECT_NE(iv, Interval(-3, 8));
    EXPECT_EQ(FOREVER.Duration(), int64_t{1} << 32);
    EXPECT_TRUE(FOREVER.InInterval(TIME_NegInfinity) && FOREVER.InInterval(TIME_PosInfinity));
}

TEST(IntervalTest, SecondsAndTicks) {
    EXPECT_EQ(SecToTicks(-2.5), -12000);
    EXPECT_EQ(SecToTicks(0.4 / TIME_TICKSPERSEC), 0);  // nearest tick
    EXPECT_EQ(SecToTicks(0.6 / TIME_TICKSPERSEC), 1);
    EXPECT_EQ(SecToTicks(-0.6 / TIME_TICKSPERSEC), -1);
    EXPECT_EQ(SecToTicks(1e12), TIME_PosInfinity);
    EXPECT_EQ(SecToTicks(-1e12), TIME_NegInfinity);
    EXPECT_DOUBLE_EQ(TicksToSec(2400), 0.5);
    for (TimeValue t : {-4801, -1, 1, 4799, 123456789}) EXPECT_EQ(SecToTicks(TicksToSec(t)), t);
}

}  // namespace
}  // namespace host
