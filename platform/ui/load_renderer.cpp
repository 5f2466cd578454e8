#include "platform/ui/load_renderer.h"

#include <dlfcn.h>

#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "platform/ui/screen_renderer_entry.h"

namespace hx::ui {
namespace {

std::wstring WhyNot() {
    const char* const reason = dlerror();
    return FromUtf8(reason ? reason : "unknown reason").value_or(L"unknown reason");
}

}  // namespace

// The library stays in the process: a toolkit cannot be set up twice.
std::shared_ptr<IRenderer> LoadScreenRenderer(const ScreenOptions& options, std::wstring& reason) {
    static bool loaded = false;
    reason.clear();
    if (loaded) {
        reason = L"the renderer with a screen was loaded before";
        return nullptr;
    }
    const std::filesystem::path file = ComponentFolder() / kScreenRendererLibrary;
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!library) {
        reason = WhyNot();
        return nullptr;
    }
    auto* const make = reinterpret_cast<MakeScreenRendererFunction*>(dlsym(library, kScreenRendererEntry));
    if (!make) {
        reason = WhyNot();
        return nullptr;
    }
    loaded = true;
    std::shared_ptr<IRenderer> renderer;
    make(options, renderer, reason);
    return renderer;
}

}  // namespace hx::ui
