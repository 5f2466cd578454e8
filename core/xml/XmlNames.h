// Comparing names of tags and attributes, and the rule by which a requested name matches a tag.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

// Equal by code, or without regard to case.
bool SameName(std::wstring_view left, std::wstring_view right, bool ignore_case);

// A tag matches a request that equals it, or whose part in front of one of " =/[]" equals it. So a value
// requested as "Min Reflectivity" is found in the element that its text makes: tag "Min", attribute
// "Reflectivity".
bool MatchesRequest(std::wstring_view tag, std::wstring_view request, bool ignore_case);

// True if an element or an attribute may be added under this name, so that the document can be read again. A
// blank may stand in an element's name.

bool IsWritableName(std::wstring_view name);
bool IsWritableAttribute(std::wstring_view name);

}  // namespace hx
