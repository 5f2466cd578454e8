// The operating system's texts for result codes, in English, as users know them from other programs.
// Asked when an error has no text of its own. Usable on any thread.
#pragma once

#include <optional>
#include <string>

#include "platform/com/hresult.h"

namespace hx {

// The text with the line end that the system gives it ("Unspecified error\r\n"); nothing for a code that it
// does not know.
HX_PLATFORM_API std::optional<std::wstring> SystemMessage(HRESULT result);

// Answers SystemMessage in place of the system's table.
using SystemMessageSource = std::optional<std::wstring> (*)(HRESULT);

// Installs `source`, null for the system's table, and gives what was installed before, null likewise.
HX_PLATFORM_API SystemMessageSource SetSystemMessageSource(SystemMessageSource source);

}  // namespace hx
