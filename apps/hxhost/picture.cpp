#include "apps/hxhost/picture.h"

#include <chrono>
#include <filesystem>

#include "apps/hosting/PumpUntil.h"
#include "platform/system/utf8.h"
#include "platform/ui/renderer.h"
#include "platform/ui/script.h"

namespace hxhost {
namespace {

constexpr std::chrono::seconds kPatience{15};
constexpr std::chrono::milliseconds kUntilDrawn{1200};  // many cycles of the scanner

std::string Take(HostDialog& dialog, const std::string& file) {
    const bool fed =
        dialog.IsPageOpen() && hosting::PumpUntil([&] { return dialog.IsPreviewFed(); }, kPatience);
    hosting::PumpUntil([] { return false; }, kUntilDrawn);
    std::error_code error;
    const auto name = hx::FromUtf8(std::filesystem::absolute(file, error).string());
    if (error || !name || !hx::ui::CurrentRenderer()->SavePicture(dialog, *name)) {
        return "the picture cannot be written to \"" + file + "\"";
    }
    if (!dialog.IsPageOpen()) return "the picture shows no page: none could be opened";
    return fed ? std::string() : "the picture shows no preview: the page asked for none";
}

}  // namespace

std::string SavePicture(HostDialog& dialog, const HostTexts& texts, const HostOptions& options,
                        bool& is_too_small) {
    hx::ui::Script script;
    if (dialog.Create(texts.Module(), IDD_HOST, nullptr)) return "the window has no template";
    const hx::ui::Size least = dialog.TemplateSize();
    is_too_small = options.size && (options.size->width < least.width || options.size->height < least.height);
    if (is_too_small) {
        return "--size: the smallest is " + std::to_string(least.width) + "x" + std::to_string(least.height);
    }
    // On no screen, whose size does not matter.
    const hx::ui::Size size = options.size.value_or(least);
    dialog.Move({0, 0, size.width, size.height});
    dialog.Show(true);
    std::string reason = Take(dialog, options.picture);
    for (const hx::ui::Script::Box& box : script.TakeBoxes()) {
        if (!reason.empty()) reason += "; ";
        reason += "the page said: " + hx::ToUtf8(box.text);
    }
    dialog.Destroy();
    return reason;
}

}  // namespace hxhost
