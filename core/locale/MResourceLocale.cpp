#include "core/locale/MResourceLocale.h"

#include <mutex>

#include "core/errors/MErrorLocation.h"
#include "platform/module/this_module.h"
#include "platform/system/locale_data.h"
#include "platform/system/never_destroyed.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

// The system's numbers for a module that cannot be found, one without strings, and one without this string.
constexpr uint32_t kModuleNotFound = 126;
constexpr uint32_t kResourceDataNotFound = 1812;
constexpr uint32_t kResourceNameNotFound = 1814;

constexpr char kOwnLanguage[] = "en-US";

struct InUse {
    std::mutex mutex;
    ModuleHandle module;
};

InUse& TheResources() {
    static NeverDestroyed<InUse> in_use;
    return *in_use;
}

// A text that is missing is not reported as a new error: it is looked for while one is being told of.
[[noreturn]] void Refuse(std::wstring_view error_name, uint32_t code) {
    MError error(ErrorCode("MResourceLocale", "LoadStringResource", error_name));
    error.AddParameter(L"win32ErrorCode", code);
    throw MException(error);
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

std::string MResourceLocale::LanguageTag() {
    const ModuleHandle module = ResourceModule();
    const std::wstring_view file_name = module ? std::wstring_view(module->FileName()) : std::wstring_view();
    const std::wstring_view stem = file_name.substr(0, file_name.rfind(L'.'));
    const size_t mark = stem.rfind(L'_');
    if (mark != std::wstring_view::npos) {
        std::string tag = ToUtf8(stem.substr(mark + 1));
        if (IsKnownLocale(tag)) return tag;
    }
    return kOwnLanguage;
}

std::wstring MResourceLocale::LoadStringResource(uint32_t id) {
    const ModuleHandle module = ResourceModule();
    if (!module) Refuse(L"GetModuleHandle", kModuleNotFound);
    const std::wstring* const text = module->String(id);
    if (text == nullptr || text->empty()) {
        const bool has_strings = !module->GetResources().strings.empty();
        Refuse(L"LoadString", has_strings ? kResourceNameNotFound : kResourceDataNotFound);
    }
    return *text;
}

}  // namespace hx
