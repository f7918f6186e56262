#pragma once

#include <cstdint>

namespace host {

// A count of the edits after which what a reader derived from controllers' tables
// must be derived again: keys or out-of-range types changed (or loaded), a
// sub-controller replaced, an Euler order changed. A read plan (see PRSReadPlan) keeps
// the count it was built at and is rebuilt when the count has moved on, so that no
// edit, notified or not, leaves it reading tables that are gone.
class TrackEdits {
public:
    static uint64_t Count() { return count_; }
    static void Note() { ++count_; }

private:
    static inline uint64_t count_ = 0;
};

}  // namespace host
