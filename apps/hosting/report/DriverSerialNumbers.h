// Which serial numbers the scanner's driver knows, connected or not: those that a report keeps to itself. On
// the thread of the user interface; the scanner API may dispatch messages meanwhile.
#pragma once

#include <string>
#include <vector>

#include "platform/com/unknown.h"

namespace hosting {

// Of all parts of the device. Empty if the driver of that internal name does not tell.
std::vector<std::wstring> DriverSerialNumbers(IUnknown* api, const std::wstring& driver);

}  // namespace hosting
