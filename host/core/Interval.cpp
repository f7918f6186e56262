#include "host/core/Interval.h"

#include <algorithm>

namespace host {

void Interval::Set(TimeValue start, TimeValue end) {
    start_ = start;
    end_ = end;
}

void Interval::SetInfinite() {
    *this = FOREVER;
}

void Interval::SetEmpty() {
    *this = NEVER;
}

Interval& Interval::operator&=(const Interval& other) {
    // An empty operand has start > end or ends at -infinity, so max/min already give an empty
    // pair in that case; normalising keeps a single representation of "never".
    start_ = std::max(start_, other.start_);
    end_ = std::min(end_, other.end_);
    if (Empty()) SetEmpty();
    return *this;
}

}  // namespace host
