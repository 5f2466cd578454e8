// What a registration script says, as a tree. For RunRegistrationScript and the check of the build.
//
//     script = root+                 root = ("HKCR" | "HKLM" | "HKCU" | their long names) "{" entry* "}"
//     entry  = key | value           value = ["NoRemove"] "val" NAME "=" data
//     key    = ["NoRemove" | "ForceRemove"] NAME ["=" data] ["{" entry* "}"]  |  "Delete" NAME
//     data   = "s" TEXT | "d" NUMBER
//
// Blanks part all of these; words compare without case. Names, texts and numbers are bare or in quotes, with
// '' for a quote, within a line; in quotes they are never a word of the above. Then %NAME% is replaced in
// them, and %% becomes %: no replacement is ever taken for a word, a brace or a quote. There are no comments.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry/registration_script.h"

namespace hx {

enum class RegistrationMark : uint8_t { kNone, kNoRemove, kForceRemove, kDelete };

struct RegistrationValue {
    uint32_t line = 0;
    std::wstring name;   // empty for the key's default value
    bool stays = false;  // when a key that stays is unregistered
    RegistryValue value;
};

struct RegistrationKey {
    uint32_t line = 0;
    RegistrationMark mark = RegistrationMark::kNone;
    std::wstring name;  // with no "\" in it
    std::vector<RegistrationValue> values;
    std::vector<RegistrationKey> keys;
};

struct RegistrationRoot {
    RegistryRoot root = RegistryRoot::kClassesRoot;
    RegistrationKey content;  // without a name
};

// The value of %NAME%; nothing if there is no such replacement.
using RegistrationValues = std::function<std::optional<std::wstring_view>(std::wstring_view name)>;

// Throws a RegistrationError for what is no script, and std::bad_alloc. Without `values` only what does not
// depend on them is checked. No key lies deeper than kMaxRegistryDepth.
std::vector<RegistrationRoot> ReadRegistrationScript(std::wstring_view script,
                                                     const RegistrationValues& values);

}  // namespace hx
