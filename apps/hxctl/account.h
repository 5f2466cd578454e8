// What a document of unknown kind holds.
#pragma once

#include "apps/hxctl/record_json.h"

namespace hxctl {

struct Account {
    // {"file","wellFormed","error","root","kind","contents":[ITEM...],"classes":[{"class","records","read",
    // "shown"}]}. ITEM has "path" and is a record (see record_account.h, and "knownBy"), a value ("type",
    // "value"), or an element that is not known ("unknown": true, "children": how many elements it has). A
    // document of another kind has "outline" in place of contents and classes, a chain of exceptions
    // "errorCodes".
    Json content;
    std::string refusal;  // what was not read; empty if all was
};
Account AccountOf(const std::string& file, std::wstring text);

// The same for a person.
std::string AccountText(const Json& content);

}  // namespace hxctl
