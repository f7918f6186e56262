#pragma once

#include <stdexcept>

namespace host {

// Thrown by the host containers when an index is outside their bounds.
class RangeException : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

}  // namespace host
