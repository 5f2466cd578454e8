// What a debugger shows of a program besides its own log: short texts for whoever looks for the cause of
// something. Any thread.
#pragma once

#include <string_view>

#include "platform/api.h"

namespace hx {

// Where it goes; must not throw. Any thread.
using DebuggerOutput = void (*)(std::wstring_view text);

// The standard error output; to be set where it is wanted.
HX_PLATFORM_API void WriteToStandardError(std::wstring_view text);

// Nothing happens to it unless a receiver was set. Never throws.
HX_PLATFORM_API void WriteDebuggerOutput(std::wstring_view text) noexcept;

// Null for none. Gives the one before, null likewise.
HX_PLATFORM_API DebuggerOutput SetDebuggerOutput(DebuggerOutput receiver);

}  // namespace hx
