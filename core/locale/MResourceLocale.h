// Where the user's words come from: the module whose resources are in use, for the whole of this component
// library or program. Set by the localisation of the controls, asked by whoever shows a text. Any thread.
#pragma once

#include <cstdint>
#include <string>

#include "platform/module/module.h"

namespace hx {

class MResourceLocale {
public:
    // The satellite in use, or else the program's own module.
    static ModuleHandle ResourceModule();

    // Puts another module into use, null for the program's own; gives the one that was in use before, null
    // likewise.
    static ModuleHandle ExchangeResourceModule(ModuleHandle module);

    // The language of what is in use, from the satellite's file name: "de-DE". That of the program's own
    // resources, and of a module whose name has none, is "en-US".
    static std::string LanguageTag();

    // Throws an MException: GetModuleHandle or LoadString ("win32ErrorCode"). There is no falling back from
    // one module to another, and an empty string is none.
    static std::wstring LoadStringResource(uint32_t id);
};

}  // namespace hx
