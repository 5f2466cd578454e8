#include "apps/hxctl/screenshot/screenshot_command.h"

#include <algorithm>
#include <iterator>

#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"
#include "platform/ui/load_renderer.h"

namespace hxctl {
namespace {

struct PageRow {
    const char* name;
    void (*save)(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);
};
constexpr PageRow kPages[] = {
    {"preview", &SavePreviewPicture},
};

}  // namespace

Outcome RunScreenshot(const ScreenshotRequest& request, bool json) {
    const auto* const page = std::ranges::find_if(
        kPages, [&](const PageRow& candidate) { return request.page == candidate.name; });
    if (page == std::end(kPages)) {
        std::string reason = "no page \"" + request.page + "\": there are";
        for (const PageRow& row : kPages) reason += std::string(" ") + row.name;
        return {kUsage, {}, reason};
    }
    if (!hx::LcidOf(request.locale)) return {kUsage, {}, "no locale \"" + request.locale + "\""};
    std::wstring reason;
    auto renderer = hx::ui::LoadScreenRenderer({true, request.scale, request.dark}, reason);
    if (!renderer) return Refused(hx::ToUtf8(reason));
    const auto before = hx::ui::SetRenderer(std::move(renderer));
    Outcome outcome = AtDesk(request.scanner, json,
                             [&](Desk& desk, DeskAnswer& answer) { page->save(request, desk, answer); });
    hx::ui::SetRenderer(before);
    return outcome;
}

}  // namespace hxctl
