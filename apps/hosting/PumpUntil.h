// Waiting in a program that has windows: what is posted and painted is dealt with meanwhile. On the thread of
// the user interface.
#pragma once

#include <chrono>

#include "platform/system/sleep.h"
#include "platform/ui/renderer.h"

namespace hosting {

// Until the condition holds; false if the time is over before.
template <class Condition>
bool PumpUntil(Condition condition, std::chrono::milliseconds patience) {
    constexpr uint32_t kPause_ms = 5;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return false;
        hx::ui::CurrentRenderer()->Pump();
        hx::SleepMilliseconds(kPause_ms);
    }
    return true;
}

}  // namespace hosting
