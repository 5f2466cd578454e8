// What time it is. Whoever writes the time asks an IClock, so that a test can set it. Any thread.
#pragma once

#include <cstdint>

#include "platform/api.h"

namespace hx {

class IClock {
public:
    // Since the beginning of 1970 in UTC. Jumps, backwards too, whenever somebody sets the machine's clock.
    virtual int64_t WallMicroseconds() const = 0;
    // Since some moment before the program started. Never jumps, and goes on while the machine sleeps.
    virtual int64_t SteadyMicroseconds() const = 0;

protected:
    ~IClock() = default;
};

// The machine's, for as long as the process lives.
HX_PLATFORM_API const IClock& SystemClock();

struct LocalTime {
    int32_t year = 0;
    int32_t month = 0;  // from 1
    int32_t day = 0;    // from 1
    int32_t hour = 0;
    int32_t minute = 0;
    int32_t second = 0;
};

// The wall time as people here read it; all 0 if it is beyond the calendar.
HX_PLATFORM_API LocalTime ToLocalTime(int64_t wall_microseconds);

}  // namespace hx
