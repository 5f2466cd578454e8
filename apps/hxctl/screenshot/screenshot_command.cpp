#include "apps/hxctl/screenshot/screenshot_command.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "apps/hxctl/page/page_names.h"
#include "apps/hxctl/renderer_in_use.h"
#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"
#include "platform/ui/load_renderer.h"

namespace hxctl {
namespace {

struct PageRow {
    const char* name;
    void (*save)(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);
    std::span<const char* const> takes;  // of kPageOptions
};
constexpr std::span<const char* const> kAll = kPageOptions;
constexpr PageRow kPages[] = {
    {"preview", &SavePreviewPicture, kAll.first(3)},
    {"measurement", &SavePagePicture, kAll.last(1)},
    {"handheld", &SavePagePicture, kAll.last(1)},
    {"diagnostics", &SavePagePicture, kAll.last(1)},
};

// What was given in vain; null if nothing was.
const std::string* Useless(const ScreenshotRequest& request, const PageRow& page) {
    const auto found = std::ranges::find_if(request.given, [&](const std::string& option) {
        return std::ranges::find(page.takes, option) == page.takes.end();
    });
    return found != request.given.end() ? &*found : nullptr;
}

// Why there is no picture of that size; empty if there is one.
std::string WrongSize(const ScreenshotRequest& request) {
    if (!(request.scale >= kSmallestScale && request.scale <= kLargestScale)) {
        return "--scale: no number between 1 and 4";
    }
    const int width = request.width.value_or(kPreviewEdge);
    const int height = request.height.value_or(kPreviewEdge);
    if (width * request.scale * height * request.scale > kMostPixels) {
        return "the picture is too large: --width and --height times --scale make more than 33 million "
               "pixels";
    }
    return {};
}

}  // namespace

Outcome RunScreenshot(const ScreenshotRequest& request, bool json) {
    const auto* const page = std::ranges::find_if(
        kPages, [&](const PageRow& candidate) { return request.page == candidate.name; });
    if (page == std::end(kPages)) {
        std::string reason = "no page \"" + request.page + "\": there are";
        for (const PageRow& row : kPages) reason += std::string(" ") + row.name;
        return {kUsage, {}, reason};
    }
    if (const std::string* const option = Useless(request, *page)) {
        return {kUsage, {}, request.page + " takes no " + *option};
    }
    if (!hx::LcidOf(request.locale)) return {kUsage, {}, "no locale \"" + request.locale + "\""};
    if (request.script == "-" && request.scanner.properties == "-") {
        return {kUsage, {}, "--script and --properties cannot both be standard input"};
    }
    if (std::string wrong = WrongSize(request); !wrong.empty()) return {kUsage, {}, std::move(wrong)};
    std::wstring reason;
    auto renderer = hx::ui::LoadScreenRenderer({true, request.scale, request.dark}, reason);
    if (!renderer) return Refused(hx::ToUtf8(reason));
    const RendererInUse in_use(std::move(renderer));
    ScannerRequest scanner = request.scanner;
    if (const PageName* const hosted = FindPage(request.page); hosted && scanner.model.empty()) {
        scanner.model = hosted->model;
    }
    return AtDesk(scanner, json, [&](Desk& desk, DeskAnswer& answer) { page->save(request, desk, answer); });
}

}  // namespace hxctl
