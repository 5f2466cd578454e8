// The vocabulary of the event store. Any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

enum class KLoggerEvent : int16_t {
    kLogModuleAdded = -202,
    kLogModuleRemoved = -201,
    kRootError = -105,
    kCascadeError = -104,
    kDismissedError = -103,
    kReturnError = -102,
    kWarning = -101,
    kStateChange = -25,
    kNotify = -23,
    kUpdate = -22,
    kMessageSend = -21,
    kMessageReceive = -20,
    kConstruction = -14,
    kDestruction = -13,
    kScopePop = -8,
    kScopePush = -7,
    kNumberedTimingPoint = -1,
    kTimingPoint = 0,
};

// As dumps name it; empty for any other number.
std::wstring_view KLoggerEventName(KLoggerEvent event);

}  // namespace hx
