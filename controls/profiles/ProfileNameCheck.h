// Whether a profile may bear a name that an operator has entered, and if not, why, in the operator's words.
// Called by the dialog that asks for names, on the thread of the user interface.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace hx {

struct ProfileNameFault {
    std::wstring message;
    bool taken = false;  // there is a profile of that name; otherwise it is no name for one
};

// Nothing for a good name.
std::optional<ProfileNameFault> CheckProfileName(std::wstring_view name);

}  // namespace hx
