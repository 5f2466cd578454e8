#include "platform/system/sleep.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace hx {
namespace {

std::atomic<Sleeper> g_sleeper{nullptr};

}  // namespace

void SleepMilliseconds(uint32_t milliseconds) {
    if (const Sleeper sleeper = g_sleeper.load()) {
        sleeper(milliseconds);
    } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
}

Sleeper SetSleeper(Sleeper sleeper) {
    return g_sleeper.exchange(sleeper);
}

}  // namespace hx
