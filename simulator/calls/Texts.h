// What the simulated scanner API says to people, in English: it is a tool. Constant; any thread.
#pragma once

#include <string_view>

#include "platform/com/hresult.h"

namespace hx::simulator {

// Of a failure about which nothing more is known.
std::wstring_view TextOfResult(HRESULT result);
// The operator's message that belongs to an error code of the API; empty for other codes.
std::wstring_view TextOfCode(std::wstring_view code);

}  // namespace hx::simulator
