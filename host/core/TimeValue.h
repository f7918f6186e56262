#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace host {

// A point in time as a signed count of ticks.
using TimeValue = int32_t;

inline constexpr int TIME_TICKSPERSEC = 4800;
inline constexpr TimeValue TIME_NegInfinity = std::numeric_limits<TimeValue>::min();
inline constexpr TimeValue TIME_PosInfinity = std::numeric_limits<TimeValue>::max();

// The ticks from `from` to `to` as a float. Two far times (keys read from a file, say)
// are further apart than TimeValue can count, so the difference is taken wider.
inline float TicksBetween(TimeValue from, TimeValue to) {
    return float(int64_t(to) - int64_t(from));
}

// Seconds to ticks, rounded to the nearest tick (halves away from zero). Values beyond the
// representable range saturate at the infinities; NaN gives 0.
inline TimeValue SecToTicks(double seconds) {
    if (std::isnan(seconds)) return 0;
    const double ticks = std::round(seconds * TIME_TICKSPERSEC);
    if (ticks <= TIME_NegInfinity) return TIME_NegInfinity;
    if (ticks >= TIME_PosInfinity) return TIME_PosInfinity;
    return static_cast<TimeValue>(ticks);
}

constexpr double TicksToSec(TimeValue ticks) {
    return static_cast<double>(ticks) / TIME_TICKSPERSEC;
}

}  // namespace host
