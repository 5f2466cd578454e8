// What is before the decimal point of a number that a scanner gave, whatever that may be.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace hx {

// The nearest that there is; 0 for what is no number.
inline int32_t WholePart(double value) {
    using Limits = std::numeric_limits<int32_t>;
    if (std::isnan(value)) return 0;
    if (value >= Limits::max()) return Limits::max();
    return value <= Limits::min() ? Limits::min() : static_cast<int32_t>(value);
}

}  // namespace hx
