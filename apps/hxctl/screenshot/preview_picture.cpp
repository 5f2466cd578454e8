// The picture of the preview: a window that embeds the component, as a dialog does.
#include <chrono>

#include "apps/hosting/PumpUntil.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/scanner/tracking_session.h"
#include "apps/hxctl/screenshot/cycle_relay.h"
#include "apps/hxctl/screenshot/picture_file.h"
#include "apps/hxctl/screenshot/screenshot_command.h"
#include "hxapi/HXPreviewClasses.h"
#include "platform/system/locale_data.h"
#include "platform/ui/component_site.h"
#include "platform/ui/renderer.h"

namespace hxctl {
namespace {

constexpr uint32_t kCycles = 12;  // several of each plane
constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::milliseconds kAfterwards{200};  // until the last cycle has been drawn

class Frame final : public hx::ui::Window {};

// Closes before the window goes, however the picture ends.
class OpenSite {
public:
    OpenSite(const std::string& locale, Frame& frame, const hx::ui::Rectangle& inside)
        : m_site(hx::Make<hx::ui::ComponentSite>(hx::LcidOf(locale).value())) {
        CheckCall("ComponentSite.Open", m_site->Open(CLSID_HXPreview, frame, inside, true));
    }
    ~OpenSite() { m_site->Close(); }
    OpenSite(const OpenSite&) = delete;
    OpenSite& operator=(const OpenSite&) = delete;

    hx::ComPtr<IUnknown> Component() const { return m_site->Component(); }

private:
    const hx::ComPtr<hx::ui::ComponentSite> m_site;
};

void Track(const ScreenshotRequest& request, Desk& desk, const hx::ComPtr<IUnknown>& preview) {
    const auto observer = preview.as<ITrackingCycleObserver>();
    if (!observer) throw FailedCall("the preview is no observer of tracking cycles");
    desk.Connect();
    const auto preset = PresetOf(desk, request.values);
    const auto relay = hx::Make<CycleRelay>(observer);
    TrackingSession session(desk, *preset, *relay);
    const bool seen = hosting::PumpUntil([&] { return relay->Cycles() >= kCycles; }, kPatience);
    session.End();
    if (!seen) throw FailedCall("the scanner sent no tracking cycles");
    hosting::PumpUntil([] { return false; }, kAfterwards);
    desk.Disconnect();
}

}  // namespace

void SavePreviewPicture(const ScreenshotRequest& request, Desk& desk, DeskAnswer& answer) {
    Frame frame;
    const hx::ui::Rectangle inside{0, 0, request.width.value_or(kPreviewEdge),
                                   request.height.value_or(kPreviewEdge)};
    frame.Create(hx::ui::WindowKind::frame, nullptr, inside);
    const OpenSite site(request.locale, frame, inside);
    frame.Show(true);
    Track(request, desk, site.Component());
    SavePicture(frame, request.file);
    answer.json["file"] = request.file;
    answer.text = request.file + "\n";
}

}  // namespace hxctl
