// The resources of one module in one language: strings, dialogs and menus by their ids, as read from `.rc`
// text in the syntax of the system's resource compiler, as far as dialogs here use it. Made once, then
// unchanged: readable on any thread.
//
// Read are STRINGTABLE, DIALOGEX, MENU, VERSIONINFO and, in a module's own script, REGISTRY and BITMAP with
// the name of a file, all with ids in numbers or in names that the script itself defines (#define NAME
// number); LANGUAGE, #include and #pragma code_page(65001) mean nothing here.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/module/dialog_template.h"

namespace hx {

// Values by name, by language and code page in small letters ("040904b0").
using VersionStrings = std::map<std::wstring, std::map<std::wstring, std::wstring>>;

struct Resources {
    std::map<uint32_t, std::wstring> strings;
    std::map<uint32_t, DialogTemplate> dialogs;
    std::map<uint32_t, MenuTemplate> menus;
    std::map<uint32_t, std::wstring> registrations;  // texts of registration scripts (registration_script.h)
    std::map<uint32_t, std::string> bitmaps;         // bytes of files *.bmp
    VersionStrings version;

    bool operator==(const Resources&) const = default;
};

// Where and why a text is no resource script.
struct ResourceError {
    uint32_t line = 0;  // from 1; 0 if the file as a whole is meant
    std::wstring text;  // one line in English, for people who write scripts
};

// The bytes of the file that a script names, without folder; nothing if there is none.
using ResourceFiles = std::function<std::optional<std::string>(const std::wstring& file_name)>;

// The resources of a script; nothing if it is broken, and `error` then says where. A script without `files`,
// as that of a satellite, has neither registration scripts nor bitmaps. Throws std::bad_alloc, and what
// `files` throws.
HX_PLATFORM_API std::optional<Resources> ReadResourceScript(std::wstring_view script, ResourceError& error,
                                                            const ResourceFiles& files = {});

// What a module's version resource says of it.
struct ModuleVersion {
    std::wstring file_description;  // "HXScannerCtrls"
    std::wstring product_version;   // "4.0.0"
};

// In the first that is there of the languages and code pages "040904B0", "000004B0", "040904E4", "000004E4",
// "04090000" and "00000000"; empty where there is none. Throws std::bad_alloc.
HX_PLATFORM_API ModuleVersion VersionOf(const Resources& resources);

}  // namespace hx
