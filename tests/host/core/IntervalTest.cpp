#include "host/core/Interval.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace host {

// Each intersection is checked against both operands over a window; empty ones get NEVER's bounds.
TEST(IntervalTest, IntersectionMembershipAndDuration) {
    const std::pair<Interval, Interval> cases[] = {
        {{0, 10}, {5, 20}},  {{0, 10}, {10, 20}},
        {{0, 10}, {11, 20}}, {FOREVER, {-7, 7}},
        {NEVER, FOREVER},    {{5, 3}, FOREVER},
        {{5, 4}, {5, 4}},    {{TIME_NegInfinity, 0}, {0, TIME_PosInfinity}}};
    for (const auto& [a, b] : cases) {
        const Interval got = a & b;
        int members = 0;
        for (TimeValue t = -25; t <= 25; ++t) {
            EXPECT_EQ(got.InInterval(t), a.InInterval(t) && b.InInterval(t)) << t;
            members += got.InInterval(t) ? 1 : 0;
        }
        EXPECT_EQ(got.Duration(), members);
        EXPECT_EQ(got.Empty(), members == 0);
        EXPECT_EQ(got.Start() == NEVER.Start() && got.End() == NEVER.End(), members == 0);
    }
    EXPECT_EQ(FOREVER.Duration(), int64_t{1} << 32);
    EXPECT_FALSE(NEVER.InInterval(TIME_NegInfinity));
    EXPECT_TRUE(Interval(5, 3) == NEVER && Interval(-3, 7) != Interval(-3, 8));
}

// Nearest tick with halves away from zero, saturation at the infinities, and NaN to 0.
TEST(IntervalTest, SecondsToTicks) {
    const std::pair<double, TimeValue> ticks[] = {{0.4, 0},   {0.6, 1}, {-0.6, -1}, {0.5, 1},
                                                  {-0.5, -1}, {2.5, 3}, {-2.5, -3}};
    for (const auto& [in, out] : ticks) EXPECT_EQ(SecToTicks(in / TIME_TICKSPERSEC), out) << in;
    EXPECT_TRUE(SecToTicks(1e6) == TIME_PosInfinity && SecToTicks(-1e6) == TIME_NegInfinity);
    EXPECT_EQ(SecToTicks(NAN), 0);
    for (TimeValue t : {-4801, 1, 123456789}) EXPECT_EQ(SecToTicks(TicksToSec(t)), t);
}

}  // namespace host
