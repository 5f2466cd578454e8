// hxhost: the hardware configuration dialog of a measuring application, with a simulated scanner. Exit 0
// closed, 1 failed (the reason goes to standard error), 2 usage, 3 there is no screen to show it on.
#include <cmath>
#include <iostream>

#include "apps/hosting/HowToRegister.h"
#include "apps/hxhost/HostDialog.h"
#include "apps/hxhost/host_options.h"
#include "apps/hxhost/picture.h"
#include "platform/com/loader.h"
#include "platform/system/utf8.h"
#include "platform/ui/load_renderer.h"

namespace {

enum Exit { kClosed = 0, kRefused = 1, kUsage = 2, kNoScreen = 3 };

int Refuse(const std::string& reason, int exit = kRefused) {
    std::cerr << "hxhost: " << reason << '\n';
    return exit;
}

std::string UnknownModel(const std::string& model, const std::vector<std::wstring>& models) {
    std::string known;
    for (const std::wstring& each : models) known.append(" ").append(hx::ToUtf8(each));
    return "no model \"" + model + "\": there are" + known;
}

// Of the window, so that it is not larger than the screen.
hx::ui::DialogRoom RoomOf(const hxhost::HostTexts& texts) {
    const auto& dialogs = texts.Module()->GetResources().dialogs;
    const auto window = dialogs.find(hxhost::IDD_HOST);
    if (window == dialogs.end()) return {};
    const hx::DialogTemplate& found = window->second;
    return {{found.rectangle.width, found.rectangle.height}, found.font_points};
}

int Show(hxhost::SimulatedScanner& scanner, const hxhost::HostOptions& options, hxhost::WindowMemory memory,
         const hxhost::HostTexts& texts, const std::wstring& announced) {
    hxhost::HostDialog dialog(scanner, texts, std::move(memory));
    dialog.Announce(announced);
    scanner.Plug();
    // A picture is the same each time, so its page meets a scanner that has arrived.
    if (!options.picture.empty()) scanner.WaitUntilPlugged();
    if (options.picture.empty()) {
        if (dialog.Run() < 0) return Refuse("no window: " + hx::ToUtf8(dialog.WhyNotCreated()));
        if (!SaveMemory(dialog.Memory())) return Refuse("the window's place could not be stored");
        return kClosed;
    }
    bool is_too_small = false;
    const std::string reason = SavePicture(dialog, texts, options, is_too_small);
    if (reason.empty()) return kClosed;
    return Refuse(reason, is_too_small ? kUsage : kRefused);
}

int Run(const hxhost::HostOptions& options) {
    hxhost::SimulatedScanner scanner;
    const auto locale = hx::FromUtf8(options.locale);
    if (const HRESULT result = scanner.Create(*locale); FAILED(result)) {
        return Refuse("no simulated scanner: " + hx::ToUtf8(hxhost::NameOf(result)) +
                      hosting::HowToRegister(result));
    }
    // A picture looks the same whatever was done before.
    hxhost::WindowMemory memory = options.picture.empty() ? hxhost::LoadMemory() : hxhost::WindowMemory();
    if (!options.model.empty()) {
        const auto model = hx::FromUtf8(options.model);
        if (!model || FAILED(scanner.SetModel(*model))) {
            return Refuse(UnknownModel(options.model, scanner.Models()), kUsage);
        }
    } else if (!memory.model.empty()) {
        scanner.SetModel(memory.model);
    }
    const hxhost::HostTexts texts(options.locale);
    std::wstring announced;
    const auto scaled_down = [&](double scale) {
        const std::wstring percent = std::to_wstring(std::lround(scale * 100));
        announced = texts.Text(hxhost::IDS_SCALED_DOWN, {{L"scale", percent}});
        std::cerr << "hxhost: shown at " << hx::ToUtf8(percent)
                  << " %: the window would not fit the screen otherwise\n";
    };
    std::wstring reason;
    auto renderer = hx::ui::LoadScreenRenderer(
        {!options.picture.empty(), options.scale, options.dark ? std::optional(true) : std::nullopt,
         RoomOf(texts), scaled_down},
        reason);
    if (!renderer) return Refuse(hx::ToUtf8(reason), kNoScreen);
    hx::ui::SetRenderer(std::move(renderer));
    return Show(scanner, options, std::move(memory), texts, announced);
}

}  // namespace

int main(int argc, char** argv) {
    int exit = kClosed;
    try {
        const auto options = hxhost::ReadOptions(argc, argv, exit);
        if (!options) return exit;
        exit = Run(*options);
        hx::ui::SetRenderer(nullptr);
        CoFreeUnusedLibraries();
        return exit;
    } catch (const std::exception& error) {
        return Refuse(error.what());
    }
}
