// What a new name for a profile is proposed to be, and what is left of one that was typed. Any thread.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace hx {

// Without white space in front and behind.
std::wstring_view TrimmedName(std::wstring_view name);

// The first of "Name (1)", "Name (2)" and so on that is not taken; the number of a name that has one is
// replaced. Without a name it is made of `new_profile`, a format with "%d" for the number.
std::wstring SuggestedName(std::wstring_view name, std::wstring_view new_profile,
                           const std::function<bool(std::wstring_view)>& is_taken);

}  // namespace hx
