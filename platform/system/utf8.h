// Text between its two forms: wide inside the program, UTF-8 in files, on the command line and in paths.
// Whole texts of any size; usable on any thread. Throws std::bad_alloc only.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"

namespace hx {

// Never fails: a surrogate or a value beyond U+10FFFF becomes U+FFFD.
HX_PLATFORM_API std::string ToUtf8(std::wstring_view text);

// Strict: nothing for overlong forms, surrogates, values beyond U+10FFFF, and bytes that are cut short or out
// of place; `*bad_offset` (if given) then says at which byte the bad sequence starts. A byte order mark is a
// character.
HX_PLATFORM_API std::optional<std::wstring> FromUtf8(std::string_view bytes, size_t* bad_offset = nullptr);

// Any bytes, in one pass: each that FromUtf8 would refuse becomes U+FFFD.
HX_PLATFORM_API std::wstring FromDamagedUtf8(std::string_view bytes);

}  // namespace hx
