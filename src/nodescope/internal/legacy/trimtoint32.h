#pragma once

#include <limits>

// Sliders and spin boxes hold ints while camera integers are 64 bits wide: values outside the
// 32-bit range stick to its ends. Deliberate, since no slider can show such ranges anyway.
inline int trimToInt32(long long value)
{
    if (value < std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    if (value > std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(value);
}
