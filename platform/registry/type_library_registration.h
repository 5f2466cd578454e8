// What stands below HKEY_CLASSES_ROOT of a type library:
//     TypeLib\{...}\VERSION               default: its name
//     TypeLib\{...}\VERSION\0\linux64     default: the file that holds it
//     TypeLib\{...}\VERSION\FLAGS         default: "0"
//     TypeLib\{...}\VERSION\HELPDIR       default: the file's folder
// Called by component libraries. Any thread; throws std::bad_alloc only. Failures are those of
// registration_keys.h.
#pragma once

#include <string_view>

#include "platform/com/guid.h"
#include "platform/registry/registration_script.h"

namespace hx {

struct TypeLibraryRegistration {
    GUID id{};
    std::wstring_view version;  // "1.0"
    std::wstring_view name;
    std::wstring_view file;
};

HX_PLATFORM_API HRESULT WriteTypeLibraryRegistration(IRegistry& registry, const TypeLibraryRegistration& of,
                                                     RegistrationError& error);
// That version alone; behind the last one the library's key, and behind the last library that of all.
HX_PLATFORM_API HRESULT DeleteTypeLibraryRegistration(IRegistry& registry, const TypeLibraryRegistration& of,
                                                      RegistrationError& error);

}  // namespace hx
