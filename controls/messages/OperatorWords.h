// Exceptions in the operator's words, for boxes of the pages and their dialogs. On any thread.
#pragma once

#include <cstdint>
#include <string>

#include "core/errors/MException.h"
#include "core/messages/MErrorFormatter.h"

namespace hx {

// The messages of this program's own errors are among the formatter's rules from the first call on. Where the
// words are missing the message says that there are none.
MErrorFormatter::Formatted InOperatorsWords(const MException& exception);

// What a failing component says of itself: the message of the chain that its description carries, or the
// description as it is if it carries none.
std::wstring ReasonIn(const std::wstring& description);

// A string resource of the language in use; "" if it has none, or words that tell the number.
std::wstring TextOrNothing(uint32_t string_id);
std::wstring TextOrNumber(uint32_t string_id);

}  // namespace hx
