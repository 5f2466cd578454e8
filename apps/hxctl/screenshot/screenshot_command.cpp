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

// What a picture is of.
struct Subject {
    void (*save)(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer);
    std::span<const char* const> takes;  // of kPageOptions
};
constexpr std::span<const char* const> kAll = kPageOptions;
constexpr Subject kPreview = {&SavePreviewPicture, kAll.first(3)};
constexpr Subject kPage = {&SavePagePicture, kAll.last(1)};
constexpr char kPreviewName[] = "preview";

// What was given in vain; null if nothing was.
const std::string* Useless(const ScreenshotRequest& request, const Subject& subject) {
    const auto found = std::ranges::find_if(request.given, [&](const std::string& option) {
        return std::ranges::find(subject.takes, option) == subject.takes.end();
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
    const PageName* const hosted = FindPage(request.page);
    if (!hosted && request.page != kPreviewName) {
        return {kUsage, {}, NoPageText(request.page) + " " + kPreviewName};
    }
    const Subject& subject = hosted ? kPage : kPreview;
    if (const std::string* const option = Useless(request, subject)) {
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
    if (hosted && scanner.model.empty()) scanner.model = hosted->model;
    return AtDesk(scanner, json,
                  [&](Desk& desk, DeskAnswer& answer) { subject.save(request, desk, answer); });
}

}  // namespace hxctl
