#include "platform/system/clock.h"

#include <time.h>

namespace hx {
namespace {

constexpr int64_t kMicroseconds = 1'000'000;  // in a second

int64_t Read(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return int64_t{time.tv_sec} * kMicroseconds + time.tv_nsec / 1000;
}

class MachineClock final : public IClock {
public:
    int64_t WallMicroseconds() const override { return Read(CLOCK_REALTIME); }
    int64_t SteadyMicroseconds() const override { return Read(CLOCK_BOOTTIME); }
};

}  // namespace

const IClock& SystemClock() {
    static const MachineClock clock;
    return clock;
}

LocalTime ToLocalTime(int64_t wall_microseconds) {
    time_t seconds = wall_microseconds / kMicroseconds;
    if (wall_microseconds % kMicroseconds < 0) --seconds;
    tm parts{};
    if (localtime_r(&seconds, &parts) == nullptr) return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

}  // namespace hx
