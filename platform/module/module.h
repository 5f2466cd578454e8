// Modules as sources of resources: a component library or program with its embedded ones, and the satellites
// that lie beside it, one per language. Any thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

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
    const std::wstring* String(uint32_t id) const;

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

// The module of that file name: the one that is loaded already, or else the satellite bundle read from the
// file. Null on failure.
HX_PLATFORM_API ModuleHandle LoadResourceModule(std::wstring_view file_name, ModuleError& error);
// The one that is loaded already; null if none is.
HX_PLATFORM_API ModuleHandle LoadedResourceModule(std::wstring_view file_name);

// Enters a module under its file name for as long as `module` lives; one that is there already is replaced.
HX_PLATFORM_API void EnterResourceModule(const ModuleHandle& module);

}  // namespace hx
