// The one function that the platform's library calls.
#include <exception>

#include "platform/system/utf8.h"
#include "platform/ui/qt/application.h"
#include "platform/ui/qt/qt_renderer.h"
#include "platform/ui/screen_renderer_entry.h"

void HxMakeScreenRenderer(const hx::ui::ScreenOptions& options, std::shared_ptr<hx::ui::IRenderer>& renderer,
                          std::wstring& reason) noexcept try {
    renderer = nullptr;
    if (hx::ui::StartApplication(options, reason)) renderer = std::make_shared<hx::ui::QtRenderer>();
} catch (const std::exception& error) {
    reason = hx::FromUtf8(error.what()).value_or(L"");
}
