// The pages of the hardware configuration by the names that the tool has for them.
#pragma once

#include <string>
#include <string_view>

namespace hxctl {

struct PageName {
    const char* name;
    const wchar_t* prog_id;
    const char* model;    // of the scanner that suits it
    bool edits_profiles;  // and so is initialised with one
};

// Null if there is none of that name.
const PageName* FindPage(std::string_view name);
std::string PageNames(std::string_view separator);
// `no page "attic": there are NAME NAME`
std::string NoPageText(std::string_view name);

}  // namespace hxctl
