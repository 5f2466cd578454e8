// A page with the measurement page's dialog on which profiles are edited, as simple as can be: the laser
// power by its slider. Its presets, its scanner and its operator are scripted; what happened is told in short
// texts.
#pragma once

#include <list>
#include <memory>
#include <set>
#include <sstream>

#include "controls/editor/BaseDynamicSettingsDlg.h"
#include "core/locale/MResourceLocale.h"
#include "platform/system/sleep.h"
#include "platform/system/utf8.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/controls/scripted_api.h"
#include "tests/controls/scripted_device.h"

namespace editing {

using scripted::Narrow;

inline std::wstring Wide(const std::string& text) {
    return *hx::FromUtf8(text);
}

// "30", "30.4".
std::string PowerText(double power);

class Page final : public hx::ui::Dialog,
                   public hx::cHXApiEventsSinkSimple<Page>,
                   public hx::BaseDynamicSettingsDlg<Page> {
public:
    Page(const scripted::Script& script, hx::ui::Window& parent);
    ~Page() override;

    // The values of the slider and of the record, which should be the same.
    int32_t Shown() const;

    hx::ui::TrackBar laser_power;
    std::string reported;  // to the host
    std::string failing;   // one of its own operations, once

private:
    void OnMessage(const hx::WindowMessage& message) override;
    void OnCommand(hx::ui::Control& control, uint32_t code) override;
    void OnScroll(hx::ui::TrackBar& track_bar, uint32_t code, int32_t position) override;

    void UpdateSettingsFromUI(bool from_sliders) override;
    void EnableControls(bool enable) noexcept override;
    bool SetProfile(const hx::ComPtr<IDynamicSettingsPreset>& preset) override;
    void ApplySettingsToHardware(const hx::ComPtr<IDynamicSettingsPreset>& preset) override;
    void ReportSelectedPreset() override { reported = Narrow(ProfileList().SelectedName()); }
    void UpdateExposureText() override {}
    hx::ComPtr<IUnknown> TrackingObserver() override { return {}; }
    void ResetPreview() override {}
    void FillGainList() override;
    void RefreshFrameRate() noexcept override {}
    void RefreshExposureRows() override {}
    void LeaveControls() override {}

    const scripted::Script& m_script;
};

// A scanner with these presets, and a page that is set up with it.
class Bench {
public:
    // "name=display name:laser power" of each.
    explicit Bench(const std::vector<std::string>& presets = {"$DEFAULT=Standard:50", "$FINE=Fine:20",
                                                              "Own=Own:30", "Pipe=Pipe:40"},
                   const std::string& selected = "$DEFAULT");
    ~Bench();

    // "what argument; ...": edit POWER, select NAME, saveas, rename, discard, delete, close, unplug, plug,
    // initialise NAME; by another page change NAME=POWER (of what is stored), move NAME=NEW, remove NAME;
    // fail CALL (once). Behind "?" the operator's answers: save NAME, discard, cancel, separated by ","; when
    // they are used up, cancel.
    void Do(const std::string& steps);

    // "Standard:50 *Own:30< 35": each row with what is stored of it, the selected one with "<", and what the
    // controls show.
    std::string State();
    // What is wrong with the page that never may be; "" if nothing is. Where the scanner fails the selected
    // row need not be that of the profile that is edited.
    std::string Wrong(bool current_is_selected = true);
    // The texts of boxes since the last time.
    std::string Boxes();
    std::map<std::string, double> Stored();
    hx::MDynamicSettingsPresets& Presets() { return page->Session().Presets(); }

    scripted::Script script;
    std::unique_ptr<Page> page;
    bool committed = false;  // the last close was not refused
    size_t unanswered = 0;
    std::function<void()> while_asked;  // in the next question
    std::function<void()> while_box;    // in the next box

private:
    void DoStep(const std::string& step);
    void Run(const std::string& what, const std::string& argument);

    struct Host final : hx::ui::Window {};

    const std::shared_ptr<hx::ui::HeadlessRenderer> m_renderer = hx::ui::HeadlessRenderer::Make();
    const std::shared_ptr<hx::ui::IRenderer> m_before;
    const hx::Sleeper m_sleeper;
    hx::ComPtr<IHXApi> m_api;
    Host m_host;
    std::vector<std::string> m_boxes;
};

}  // namespace editing
