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

}  // namespace host
