// Every call of the scanner API in a whole session of a settings page fails once: what the operator is told,
// and that page, profiles and scanner still agree then.
#include "tests/controls/settings_page/page_session.h"

#include <algorithm>

#include "controls/editor/PresetField.h"
#include "core/errors/MDiagnosticsRegistry.h"
#include "platform/com/text_array.h"

namespace hx {
namespace {

using Values = std::array<double, kPresetFieldCount>;

Values ValuesOf(IDynamicSettingsPreset& preset) {
    Values values{};
    for (size_t i = 0; i < kPresetFieldCount; ++i) {
        EXPECT_EQ(kPresetFields.at(i).get(preset, values.at(i)), S_OK);
    }
    return values;
}

// What a call that fails may be without a word to anybody.
const std::set<std::string> kSilent = {"Advise", "Unadvise", "GetConnectionState", "DisableScanner",
                                       "StartTrackingDataRecording"};
// Which are only logged, as all while a scanner is given back.
const std::set<std::string> kLogged = {"GetSupportedAnalogImagerGains", "RegisterTrackingCycleObserver",
                                       "ReleaseHandle", "DisableScanner", "StopTrackingDataRecording"};

// A profile whose values could not be read or written counts as modified.
bool IsOfPresets(const std::string& operation) {
    return std::ranges::any_of(kPresetFields, [&](const PresetField& field) {
        return operation == ToUtf8(field.getter) || operation == ToUtf8(field.setter);
    });
}

// In parts that run beside each other.
constexpr int32_t kParts = 6;
// Of that many cases one, where each takes twenty times as long. A prime, so that all operations are met.
#ifdef __SANITIZE_ADDRESS__
constexpr int32_t kOneOf = 17;
#else
constexpr int32_t kOneOf = 1;
#endif

class PageFaults : public PageSession,
                   public testing::WithParamInterface<std::tuple<KindOfPage, int32_t>>,
                   private MDiagnosticsRegistryImplementation {
protected:
    void SetUp() override {
        SetDiagnosticsRegistry(this);
        PageSession::SetUp();
        m_steps = Steps();
    }
    void TearDown() override {
        PageSession::TearDown();
        SetDiagnosticsRegistry(nullptr);
    }
    const PageKind& Kind() const override { return kPageKinds[std::get<KindOfPage>(GetParam())]; }

    // How often each operation was called since the last time, and how many calls "failed".
    std::map<std::string, int32_t> TakeCalls() {
        std::map<std::string, int32_t> counts;
        for (const std::string& call : Calls()) {
            const size_t at = call.find("\"op\":\"") + 6;
            ++counts[call.substr(at, call.find('"', at) - at)];
            if (!call.ends_with("\"result\":0}")) ++counts["failed"];
        }
        return counts;
    }

    // The call of that place in the step fails.
    void CheckCase(size_t place, const std::string& operation, int32_t nth) {
        const Step& failing = m_steps.at(place);
        SCOPED_TRACE(std::string(failing.name) + ", " + operation + " " + std::to_string(nth));
        Begin();
        for (size_t i = 0; i < place; ++i) {
            if (m_steps.at(i).is_slow) continue;
            EXPECT_EQ(Run(m_steps.at(i)), 0u) << m_steps.at(i).name;
        }
        TakeCalls();
        m_raised.clear();
        m_logged = 0;
        const Bstr name(*FromUtf8(operation));
        const HXSimulatorFault fault{name.get(), E_FAIL, 1, nth, 0, FALSE, nullptr, nullptr, nullptr};
        ASSERT_EQ(m_hands->InjectFault(&fault), S_OK);
        const int failures = Failures();
        const size_t boxes = Run(failing);
        EXPECT_EQ(TakeCalls()["failed"], 1);
        m_hands->ClearFaults();
        CheckTold(operation, failing, boxes);
        CheckRate(place, operation, nth);
        const bool is_of_preset = IsOfPresets(operation);
        CheckState(is_of_preset);
        // The page goes on where it was.
        Replug();
        if (failing.is_slow) {
            EXPECT_EQ(Run(failing), 0u) << m_last_box;
            EXPECT_EQ(TakeCalls()["DetectExposureTime"], 1);
        }
        const size_t end = std::min(place + 8, m_steps.size());
        for (size_t i = place + 1; i < end; ++i) {
            const Step& step = m_steps.at(i);
            if (Failures() != failures) return;
            SCOPED_TRACE(step.name);
            if (step.is_slow) continue;
            EXPECT_EQ(Run(step), 0u) << m_last_box;
            CheckState(is_of_preset);
        }
        CheckStore();
    }
    // The profiles that are stored, whatever the page has of them.
    void CheckStore() {
        SafeArray names, shown;
        EXPECT_EQ(
            NewHandle()->EnumerateDynamicSettingsPresets(Bstr(Kind().device).get(), names.put(), shown.put()),
            S_OK);
        const auto texts = TextsOf(names.get());
        for (const auto& [name, values] : m_factory) {
            EXPECT_EQ(std::ranges::count(*texts, name), 1) << ToUtf8(name) << " is not stored";
        }
    }
    static int Failures() {
        return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
    }
    // As an operator does whose page could not be set up.
    void Replug() {
        const ScannerSession& session = m_page->Session();
        if (session.IsSelected() && session.ConnectionState() == HXConnected && !session.IsHandleAcquired()) {
            EXPECT_EQ(Run({"plugged in again", [&] { Arrive({0, 2, 1}); }}), 0u);
        }
    }
    void CheckTold(const std::string& operation, const Step& step, size_t boxes) {
        if (m_raised.empty()) {
            EXPECT_TRUE(kSilent.contains(operation)) << "nobody was told";
            return;
        }
        for (const std::string& code : m_raised) {
            const size_t colon = code.find(':');
            std::string error = code.substr(colon + 1);
            if (error == operation + "A" || error == operation + "B") error.pop_back();
            EXPECT_TRUE(error.ends_with(operation)) << code;
            const std::string on = code.substr(0, code.find('.'));
            EXPECT_TRUE(on == Kind().name || on == "MDynamicSettingsPresets" ||
                        on == "BaseDynamicSettingsDlg")
                << code;
        }
        if (Kind().logged.contains(operation)) {
            EXPECT_EQ(boxes, 0u);
            EXPECT_EQ(m_logged, 1u);
        } else if (step.tells && !kLogged.contains(operation)) {
            EXPECT_GE(boxes, 1u);
        } else {
            EXPECT_GE(boxes + m_logged, 1u);
        }
    }

    // A frame rate that was not told is none where nobody complains of it.
    void CheckRate(size_t place, const std::string& operation, int32_t nth) {
        if (operation != "GetFrameRate" || !Kind().logged.contains(operation)) return;
        const bool is_last = nth == m_counts.at(place).at(operation) - 1;
        EXPECT_EQ(At<>(228).Text() == L"Frame rate: 0 Hz", is_last);
    }

    // Whatever has failed before, and nothing does from now on.
    void CheckState(bool may_be_marked) {
        if (!m_page->Session().Api()) return;
        EXPECT_EQ(m_renderer->WaitCursors(), 0);
        const DynamicSettingsData& data = m_page->Data();
        EXPECT_TRUE(data.edit_notifications_enabled);
        const bool shown_by_controls = m_page->IsCreated() && m_page->IsReady();
        for (const ShownNumber& number : Kind().numbers) {
            if (!shown_by_controls) break;
            const int32_t value = number.value(data);
            EXPECT_EQ(At<ui::TrackBar>(number.slider).Position(), number.top ? number.top - value : value)
                << number.slider;
            EXPECT_EQ(ToUtf8(At<ui::Edit>(number.edit).Text()), std::to_string(value / number.unit))
                << number.edit;
        }
        if (shown_by_controls) Kind().check(*m_page);
        const std::pair<uint32_t, BOOL> kFlags[] = {
            {224, data.automatic_laser_power}, {225, data.edge_filter_3d}, {253, data.reflection_filter}};
        for (const auto& [box, value] : kFlags) {
            if (!shown_by_controls) break;
            EXPECT_EQ(At<ui::CheckBox>(box).IsChecked(), value != FALSE) << box;
        }
        const auto& gains = m_page->SupportedGains();
        const auto gain = std::ranges::find(gains, data.gain);
        if (shown_by_controls && gain != gains.end()) {
            EXPECT_EQ(At<ui::ComboBox>(286).Selected(), gain - gains.begin());
        }

        MDynamicSettingsPresets& presets = m_page->Session().Presets();
        const std::wstring current = m_page->GetCurrentPresetName();
        for (const auto& [name, values] : m_factory) {
            const auto stored = presets.FindPresetExactly(name);
            if (!stored) {
                EXPECT_FALSE(m_page->IsReady()) << ToUtf8(name) << " is only missing if loading failed";
                continue;
            }
            EXPECT_EQ(ValuesOf(*stored), values) << ToUtf8(name) << " is no profile to be changed";
        }
        if (!m_page->IsReady()) return;
        const std::wstring selected = m_page->ProfileList().SelectedName();
        // That one, if a profile could be loaded and not be shown.
        EXPECT_TRUE(selected == current || selected == L"$DEFAULT") << ToUtf8(selected);
        for (int32_t row = 0; row < m_page->ProfileList().Count(); ++row) {
            const ProfileRow& profile = m_page->ProfileList().Row(row);
            EXPECT_EQ(profile.modified, profile.name == current && m_page->IsModified());
        }
        const auto stored = presets.FindPresetExactly(current);
        const auto edited = m_page->WorkingPreset();
        if (!stored || !edited) return;
        // With what the controls show and a preset has refused.
        const auto shown = presets.CreateNewPreset();
        m_page->CopySettings(*edited, *shown);
        m_page->BaseDataToSettings(*shown);
        const bool differs = m_page->SettingsAreDifferent(*stored, *shown);
        // To be asked once too often does no harm.
        if (differs || !may_be_marked) {
            EXPECT_EQ(m_page->IsModified(), differs);
        }
    }

    std::vector<Step> m_steps;
    std::vector<std::map<std::string, int32_t>> m_counts;  // of the calls of each step
    std::map<std::wstring, Values> m_factory;

private:
    void OnClass(const char*) override {}
    void OnLocation(const char*, const char*) override {}
    void OnRootError(const MErrorLocation& location, std::wstring_view error_name) override {
        m_raised.push_back(std::string(location.ClassName()) + "." + location.MethodName() + ":" +
                           ToUtf8(error_name));
    }
    void OnCascadeError(const MErrorLocation&, std::wstring_view) override {}
    void OnDismissedError(const MErrorLocation&, std::wstring_view) override { ++m_logged; }
    void OnReturnedError(const MErrorLocation&, HRESULT) override {}
    void OnException(const MErrorLocation&, const MException&, int32_t) override {}

    std::vector<std::string> m_raised;
    size_t m_logged = 0;
};

INSTANTIATE_TEST_SUITE_P(Part, PageFaults,
                         testing::Combine(testing::Values(kMeasurement, kHandheld),
                                          testing::Range(0, kParts)));

TEST_P(PageFaults, EveryCallOfASession) {
    Begin();
    for (const Step& step : m_steps) {
        TakeCalls();
        EXPECT_EQ(Run(step), 0u) << step.name;
        EXPECT_EQ(m_not_done, 0) << step.name;
        m_counts.push_back(TakeCalls());
        EXPECT_EQ(m_counts.back().count("failed"), 0u) << step.name;
        if (!m_factory.empty() || !m_page->Session().Handle()) continue;
        MDynamicSettingsPresets& presets = m_page->Session().Presets();
        for (size_t i = 0; i < presets.Count(); ++i) {
            m_factory[presets.At(i).name] = ValuesOf(*presets.At(i).preset);
        }
    }
    int32_t cases = 0;
    for (size_t place = 0; place < m_counts.size(); ++place) {
        for (const auto& [operation, count] : m_counts[place]) {
            for (int32_t nth = 0; nth < count; ++nth) {
                const int32_t number = cases++;
                if (number % kOneOf != 0 || number / kOneOf % kParts != std::get<int32_t>(GetParam()))
                    continue;
                CheckCase(place, operation, nth);
            }
        }
    }
    // It changes when a session calls more or less.
    EXPECT_EQ(cases, Kind().calls);
}

}  // namespace
}  // namespace hx
