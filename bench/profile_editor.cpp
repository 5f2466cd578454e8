// What the profile editor itself needs between a slider's notification and the call of the scanner's handle,
// on the renderer without a screen: presets and handle answer at once.
#include "bench/comparisons.h"
#include "bench/expect.h"
#include "controls/editor/BaseDynamicSettingsDlg.h"
#include "controls/widgets/MEditFloat.h"
#include "platform/com/implements.h"
#include "platform/module/resources.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/headless/headless_renderer.h"

namespace hx::bench {
namespace {

constexpr wchar_t kScript[] =
    L"1 DIALOGEX 0, 0, 300, 200\n"
    L"STYLE WS_POPUP | WS_CAPTION\n"
    L"FONT 8, \"MS Shell Dlg\"\n"
    L"BEGIN\n"
    L"    LISTBOX 6000, 4, 4, 100, 190, LBS_OWNERDRAWFIXED | WS_TABSTOP\n"
    L"    CONTROL \"\", 207, \"msctls_trackbar32\", WS_TABSTOP, 110, 4, 100, 15\n"
    L"    CONTROL \"\", 211, \"msctls_trackbar32\", WS_TABSTOP, 110, 24, 100, 15\n"
    L"    CONTROL \"\", 214, \"msctls_trackbar32\", WS_TABSTOP, 110, 44, 100, 15\n"
    L"    EDITTEXT 210, 220, 4, 32, 12, WS_TABSTOP\n"
    L"    EDITTEXT 212, 220, 24, 32, 12, WS_TABSTOP\n"
    L"    EDITTEXT 217, 220, 44, 32, 12, WS_TABSTOP\n"
    L"END\n";

class Preset final : public Implements<Preset, SingleThreaded, IDynamicSettingsPreset> {
public:
    HRESULT GetName(BSTR* name) override { return Give(Bstr(L"").detach(), name); }
    HRESULT SetName(BSTR) override { return S_OK; }
    HRESULT GetLaserPower(double* value) override { return Give(m_power, value); }
    HRESULT SetLaserPower(double value) override { return Give(value, &m_power); }
    HRESULT GetExposureTime(double* value) override { return Give(m_exposure_us, value); }
    HRESULT SetExposureTime(double value) override { return Give(value, &m_exposure_us); }
    HRESULT GetAnalogImagerGain(uint32_t* value) override { return Give(m_gain, value); }
    HRESULT SetAnalogImagerGain(uint32_t value) override { return Give(value, &m_gain); }
    HRESULT IsDLPCEnabled(BOOL* value) override { return Give(m_automatic, value); }
    HRESULT SetDLPCEnabled(BOOL value) override { return Give(value, &m_automatic); }
    HRESULT Get3DEdgeFilterEnabled(BOOL* value) override { return Give(m_filter_3d, value); }
    HRESULT Set3DEdgeFilterEnabled(BOOL value) override { return Give(value, &m_filter_3d); }
    HRESULT GetSignalThreshold(uint32_t* value) override { return Give(m_threshold, value); }
    HRESULT SetSignalThreshold(uint32_t value) override { return Give(value, &m_threshold); }
    HRESULT GetEdgeFilterValue(double* value) override { return Give(m_filter, value); }
    HRESULT SetEdgeFilterValue(double value) override { return Give(value, &m_filter); }
    HRESULT GetMaxInclination(double* value) override { return Give(m_inclination, value); }
    HRESULT SetMaxInclination(double value) override { return Give(value, &m_inclination); }
    HRESULT IsRFEnabled(BOOL* value) override { return Give(m_reflections, value); }
    HRESULT SetRFEnabled(BOOL value) override { return Give(value, &m_reflections); }

private:
    template <class T>
    static HRESULT Give(T value, T* out) {
        *out = value;
        return S_OK;
    }

    double m_power = 50;
    double m_exposure_us = 1000;
    uint32_t m_gain = 1;
    BOOL m_automatic = FALSE;
    BOOL m_filter_3d = FALSE;
    uint32_t m_threshold = 5;
    double m_filter = 0;
    double m_inclination = 0;
    BOOL m_reflections = FALSE;
};

ComPtr<IDynamicSettingsPreset> NewPreset() {
    return Make<Preset>().as<IDynamicSettingsPreset>();
}

// Three sliders, each with an edit that shows its number.
class Page final : public ui::Dialog,
                   public cHXApiEventsSinkSimple<Page>,
                   public BaseDynamicSettingsDlg<Page> {
public:
    Page() : BaseDynamicSettingsDlg(kHandheldSession) {
        ResourceError error;
        const auto resources = ReadResourceScript(kScript, error);
        Expect(resources.has_value(), "HX", "a script");
        Bind(kProfileList, ProfileList());
        constexpr uint32_t kIds[][2] = {{207, 210}, {211, 212}, {214, 217}};
        for (size_t i = 0; i < std::size(kIds); ++i) {
            Bind(kIds[i][0], sliders[i]);
            Bind(kIds[i][1], m_edits[i]);
        }
        Expect(!Create(MakeResourceModule(L"", *resources), 1, nullptr), "HX", "a dialog");
        Show(true);
        // Set up as a session does it.
        SetPresets(NewPreset(), NewPreset());
        SetExposureRange(10000);
        SetProfileToSelect(L"$DEFAULT");
        Expect(FinishReopening(), "HX", "a page that is set up");
    }
    ~Page() override {
        Session().OnDestroy();
        Destroy();
    }

    ui::TrackBar sliders[3];
    size_t activated = 0;

private:
    void OnScroll(ui::TrackBar&, uint32_t, int32_t) override {
        Attempt([&](const Scope&) { OnSettingChanged(true); });
    }
    void UpdateSettingsFromUI(bool from_sliders) override {
        if (!IsReady()) return;
        for (size_t i = 0; from_sliders && i < std::size(sliders); ++i) {
            m_edits[i].SetText(std::to_wstring(sliders[i].Position()));
        }
        Data().laser_power = sliders[0].Position();
        Data().signal_threshold = static_cast<uint32_t>(sliders[1].Position());
        Data().edge_filter = sliders[2].Position();
        BaseDataToSettings(*WorkingPreset());
    }
    bool SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) override {
        return ShowOrPutBack(
            [&] {
                BaseSettingsToData(*preset);
                sliders[0].SetPosition(Data().laser_power);
                sliders[1].SetPosition(static_cast<int32_t>(Data().signal_threshold));
                sliders[2].SetPosition(Data().edge_filter);
                ApplySettingsToHardware(preset);
            },
            [] {});
    }
    void ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>&) override { ++activated; }
    void EnableControls(bool) noexcept override {}
    void ReportSelectedPreset() override {}
    void UpdateExposureText() override {}
    ComPtr<IUnknown> TrackingObserver() override { return {}; }
    void ResetPreview() override {}
    void FillGainList() override {}
    void RefreshFrameRate() noexcept override {}
    void RefreshExposureRows() override {}
    void LeaveControls() override {}

    MEditFloat m_edits[3];
};

double TimeOf(Benchmark& benchmark, size_t profiles, bool back_and_forth) {
    PresetsReference presets;
    for (size_t i = 1; i < profiles; ++i) {
        presets->SetPreset(L"Scan of part " + std::to_wstring(i), NewPreset());
    }
    presets->SetPreset(L"$DEFAULT", NewPreset());
    Page page;
    ui::TrackBar& slider = page.sliders[0];
    const int32_t stored = slider.Position();
    int32_t position = stored;
    const auto move = [&] {
        // Either from one edit to the next, or between what is stored and an edit: then the row changes.
        position = back_and_forth ? 2 * stored - 1 - position : position % 100 + 1;
        slider.UserScroll(TB_THUMBTRACK, position);
    };
    const size_t before = page.activated;
    move();
    Expect(page.activated == before + 1, "HX", "an activated preset");
    return Compete({{"HX", [] {}, move}}, benchmark.HowMuch())[0];
}

}  // namespace

void CompareProfileEditing(Benchmark& benchmark) {
    constexpr double kMost = 100e-6;
    const auto before = ui::SetRenderer(ui::HeadlessRenderer::Make());
    Table table("Profile editor",
                "A slider moves: the record, the working preset, the comparison with what is stored, and the "
                "row in the list, up to the call that would activate it. Presets answer at once.",
                {"What", "Of 10 profiles", "Of 10,000", "At most", "Met"});
    for (const auto& [what, back_and_forth] :
         {std::pair{"from one edit to the next", false}, std::pair{"to and from what is stored", true}}) {
        const double few = TimeOf(benchmark, 10, back_and_forth);
        const double many = TimeOf(benchmark, 10'000, back_and_forth);
        table.Add({what, FormatTime(few), FormatTime(many), FormatTime(kMost),
                   std::max(few, many) <= kMost ? "yes" : "no"});
    }
    benchmark.report.Add(table.Markdown());
    ui::SetRenderer(before);
}

}  // namespace hx::bench
