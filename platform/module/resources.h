// The resources of one module in one language: strings, dialogs and menus by their ids, as read from `.rc`
// text. Made once, then unchanged: readable on any thread.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/module/dialog_template.h"

namespace hx {

struct Resources {
    std::map<uint32_t, std::wstring> strings;
    std::map<uint32_t, DialogTemplate> dialogs;
    std::map<uint32_t, MenuTemplate> menus;
};

// Where and why a text is no resource script.
struct ResourceError {
    uint32_t line = 0;  // from 1
    std::wstring text;  // in English, for people who write scripts
};

// The resources of a script; nothing if it is broken, and `error` then says where. Throws std::bad_alloc.
HX_PLATFORM_API std::optional<Resources> ReadResourceScript(std::wstring_view script, ResourceError& error);

}  // namespace hx
