// Modules as sources of resources: a component library or program with its embedded ones, and the satellites
// that lie beside it, one per language. A satellite is a file of resource script text. The process knows each
// module by its file name for as long as somebody holds it. Any thread; functions that do not say otherwise
// throw std::bad_alloc only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/api.h"
#include "platform/module/resources.h"

namespace hx {

class ResourceModule {
public:
    ResourceModule(std::wstring file_name, Resources resources)
        : m_file_name(std::move(file_name)), m_resources(std::move(resources)) {}

    const std::wstring& FileName() const { return m_file_name; }  // absolute
    const Resources& GetResources() const { return m_resources; }
    // Null if the module has no such string.
    HX_PLATFORM_API const std::wstring* String(uint32_t id) const;
    // Null if the module has no such registration script.
    HX_PLATFORM_API const std::wstring* Registration(uint32_t id) const;
    // The bytes of its file. Null if the module has no such bitmap.
    HX_PLATFORM_API const std::string* Bitmap(uint32_t id) const;

private:
    std::wstring m_file_name;
    Resources m_resources;
};

// Keeps the module loaded.
using ModuleHandle = std::shared_ptr<const ResourceModule>;

// Why a module could not be loaded.
struct ModuleError {
    uint32_t code = 0;        // the system's number: 126 there is none, 193 it is broken, 8 no memory
    ResourceError resources;  // of a broken one
};

// The module of that file name: the one that is loaded already, or else the satellite read from the file. A
// file name that is not absolute counts from the current folder; links are not resolved. Null on failure,
// also for want of memory: throws nothing.
HX_PLATFORM_API ModuleHandle LoadResourceModule(std::wstring_view file_name, ModuleError& error);
// The one that is loaded already; null if none is.
HX_PLATFORM_API ModuleHandle LoadedResourceModule(std::wstring_view file_name);

// A module that is no satellite. Its memory belongs to the platform library: it may be held longer than the
// library that made it stays loaded.
HX_PLATFORM_API ModuleHandle MakeResourceModule(std::wstring file_name, Resources resources);
// Enters a module under its file name for as long as it lives; one that is there already is replaced. One
// without a file name is entered nowhere.
HX_PLATFORM_API void EnterResourceModule(const ModuleHandle& module);

}  // namespace hx
