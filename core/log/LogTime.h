// Moments as logs write them: in records, day first, and in file names, so that names sort by time. Any
// thread.
#pragma once

#include <string>

#include "platform/system/clock.h"

namespace hx {

// "31-01-2024 at 23:59:59"
std::wstring RecordTimeText(const LocalTime& time);
// "20240131_235959"
std::wstring FileTimeText(const LocalTime& time);

}  // namespace hx
