#include "core/locale/MResourceLocale.h"

#include <mutex>

#include "core/errors/MErrorLocation.h"
#include "platform/module/this_module.h"

namespace hx {
namespace {

// The system's numbers for a module that cannot be found, one without strings, and one without this string.
constexpr uint32_t kModuleNotFound = 126;
constexpr uint32_t kResourceDataNotFound = 1812;
constexpr uint32_t kResourceNameNotFound = 1814;

struct InUse {
    std::mutex mutex;
    ModuleHandle module;
};

InUse& TheResources() {
    static InUse in_use;
    return in_use;
}

[[noreturn]] void Refuse(int32_t line, std::wstring_view error_name, uint32_t code) {
    static MErrorLocation location("MResourceLocale", "LoadStringResource");
    location.Set(nullptr, line);
    MError error = MakeError(location, error_name);
    error.AddParameter(L"win32ErrorCode", code);
    Throw(location, error);
}

}  // namespace

ModuleHandle MResourceLocale::ResourceModule() {
    {
        InUse& in_use = TheResources();
        const std::lock_guard guard(in_use.mutex);
        if (in_use.module) return in_use.module;
    }
    return ThisModule();
}

ModuleHandle MResourceLocale::ExchangeResourceModule(ModuleHandle module) {
    InUse& in_use = TheResources();
    const std::lock_guard guard(in_use.mutex);
    in_use.module.swap(module);
    return module;
}

std::wstring MResourceLocale::LoadStringResource(uint32_t id) {
    const ModuleHandle module = ResourceModule();
    if (!module) Refuse(27, L"GetModuleHandle", kModuleNotFound);
    const std::wstring* const text = module->String(id);
    if (text == nullptr || text->empty()) {
        const bool has_strings = !module->GetResources().strings.empty();
        Refuse(38, L"LoadString", has_strings ? kResourceNameNotFound : kResourceDataNotFound);
    }
    return *text;
}

}  // namespace hx
