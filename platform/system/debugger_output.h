// What a debugger shows of a program besides its own log: short texts for whoever looks for the cause of
// something. Any thread.
#pragma once

#include <string_view>

#include "platform/api.h"

namespace hx {

// Goes to the standard error output if the environment has a variable HX_DEBUGGER_OUTPUT, else nowhere.
HX_PLATFORM_API void WriteDebuggerOutput(std::wstring_view text) noexcept;

// Gets the texts instead from now on, on any thread; must not throw. Null brings back what was without it.
// Gives the one before, null likewise.
using DebuggerOutput = void (*)(std::wstring_view text);
HX_PLATFORM_API DebuggerOutput SetDebuggerOutput(DebuggerOutput receiver);

}  // namespace hx
