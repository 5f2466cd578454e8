// The pages of the hardware configuration by the names that the tool has for them.
#pragma once

#include <string>
#include <string_view>

namespace hxctl {

struct PageName {
    const char* name;
    const wchar_t* prog_id;
};

// Null if there is none of that name.
const PageName* FindPage(std::string_view name);
// `no page "attic": there are measurement`
std::string NoPageText(std::string_view name);

}  // namespace hxctl
