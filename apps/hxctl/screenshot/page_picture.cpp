// The picture of a page: hosted as `hxctl page` does it, on a screen that is none.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "apps/hxctl/page/page_command.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/screenshot/picture_file.h"
#include "apps/hxctl/screenshot/screenshot_command.h"
#include "platform/system/utf8.h"
#include "platform/ui/component_control.h"

namespace hxctl {
namespace {

// A preview that lives draws thirty times a second.
constexpr std::chrono::milliseconds kPatience{2000};
constexpr std::chrono::milliseconds kBetweenPictures{50};
constexpr std::chrono::milliseconds kAfterwards{300};  // every laser plane has been drawn

std::string FirstSession(Desk& desk, const PageName& page) {
    if (!page.edits_profiles) return "select\napi 1\n";
    hx::Bstr driver;
    hx::Bstr device;
    CheckCall("GetDevice", desk.Simulator().GetDevice(driver.put(), device.put()));
    return "initialise \"" + TextOf(driver) + "\" \"" + TextOf(device) +
           "\" EditDynamicSettingsPresets $DEFAULT\nselect\napi 1\n";
}

std::string BytesOf(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

bool HasPreview(const PageHost& host) {
    const hx::ui::Dialog* const dialog = host.Page().hosted.Dialog();
    return dialog && std::ranges::any_of(dialog->Controls(), [](const hx::ui::Control* control) {
               return dynamic_cast<const hx::ui::ComponentControl*>(control) != nullptr;
           });
}

// Until the picture changes by itself, as it does while the scanner looks; it may not, and that is all right.
void SaveLivePicture(PageHost& host, const std::string& file) {
    hx::ui::Window& frame = host.Page().frame;
    const auto pump_for = [](std::chrono::milliseconds time) {
        PageHost::WaitUntil([] { return false; }, time);
    };
    const auto end = std::chrono::steady_clock::now() + kPatience;
    SavePicture(frame, file);
    if (!HasPreview(host)) return;
    const std::string first = BytesOf(file);
    bool live = false;
    while (!live && std::chrono::steady_clock::now() < end) {
        pump_for(kBetweenPictures);
        SavePicture(frame, file);
        live = BytesOf(file) != first;
    }
    if (!live) return;
    pump_for(kAfterwards);
    SavePicture(frame, file);
}

void Resize(const ScreenshotRequest& request, PageHost& host) {
    if (!request.width && !request.height) return;
    const hx::ui::Size size = host.Page().frame.ClientSize();
    host.Resize({request.width.value_or(size.width), request.height.value_or(size.height)});
}

}  // namespace

void SavePagePicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer) {
    const PageName& page = *FindPage(request.page);
    const std::shared_ptr<std::istream> script =
        request.Gives("--script") ? OpenScript(request.script)
                                  : std::make_shared<std::istringstream>(FirstSession(desk, page));
    PageHost host(hx::ComPtr<IHXSimulator>(&desk.Simulator()), request.locale, false);
    host.LimitPixels(kMostPixels / (request.scale * request.scale));
    host.SetFolder(FolderOf(request.script));
    host.Add("main", page);
    Resize(request, host);
    const ScriptTally tally = RunScript(host, *script, [&](const Json& each) {
        if (!each.at("ok")) desk.Notice(each.at("error"));
    });
    for (const hx::ui::Script::Box& box : host.Dialogs().TakeBoxes()) {
        desk.Notice("the page says: " + hx::ToUtf8(box.text));
    }
    SaveLivePicture(host, request.file);
    answer.json["file"] = request.file;
    answer.text = request.file + "\n";
    if (tally.failed != 0) throw FailedCall(tally.Text());
}

}  // namespace hxctl
