// What stands below HKEY_CLASSES_ROOT of a component class, beside what the class lookup reads there
// (registry_classes.h):
//     PROGID                              default: the description; the same for the name without version
//     CLSID\{...}                         default: the description
//     CLSID\{...}\Control                 of controls, as are the following ones
//     CLSID\{...}\MiscStatus              default: "0"; \1: the status, as a decimal number
//     CLSID\{...}\ToolboxBitmap32         default: "LIBRARY, NUMBER"
//     CLSID\{...}\TypeLib, \Version       default: {...}; "1.0"
//     CLSID\{...}\Implemented Categories\{...}, \Required Categories\{...}
// Called by component libraries that register their classes. Any thread; what does not say otherwise throws
// std::bad_alloc only. Failures are those of registration_keys.h.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/com/class_table.h"
#include "platform/registry/registration_script.h"

namespace hx {

struct ClassRegistration {
    CLSID clsid{};
    std::wstring_view prog_id;
    std::wstring_view version_independent_prog_id;  // empty if it has none
    std::wstring_view description;
    std::wstring_view library;
    std::wstring_view threading_model;  // empty: none is written
};

struct ControlRegistration {
    uint32_t toolbox_bitmap = 0;  // a resource of the library
    uint32_t misc_status = 0;
    GUID type_library{};
    std::wstring_view version;  // of the type library
};

HX_PLATFORM_API HRESULT WriteClassRegistration(IRegistry& registry, const ClassRegistration& of,
                                               RegistrationError& error);
// As well, of a class that is a control.
HX_PLATFORM_API HRESULT WriteControlRegistration(IRegistry& registry, const ClassRegistration& of,
                                                 const ControlRegistration& control,
                                                 RegistrationError& error);
// Of either: the keys of the class and of its ProgIDs.
HX_PLATFORM_API HRESULT DeleteClassRegistration(IRegistry& registry, const ClassRegistration& of,
                                                RegistrationError& error);

enum class CategoryUse { kImplemented, kRequired };

struct ComponentCategory {
    GUID category{};
    CategoryUse use = CategoryUse::kImplemented;
};
// Writes or deletes the categories that a class declares.
HX_PLATFORM_API HRESULT RegisterCategories(IRegistry& registry, REFCLSID clsid,
                                           std::span<const ComponentCategory> categories,
                                           RegistrationAction action, RegistrationError& error);

// All rows of a library that has nothing else to register, in this process's registry: S_OK, SELFREG_E_CLASS,
// E_OUTOFMEMORY. A failure leaves error information. Throws nothing.
HX_PLATFORM_API HRESULT RegisterClassRows(std::span<const ClassRow> rows, std::wstring_view library_file,
                                          RegistrationAction action) noexcept;

}  // namespace hx
