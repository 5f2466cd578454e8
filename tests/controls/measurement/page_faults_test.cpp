// Every call of the scanner API in a whole session of the measurement page fails once: what the operator is
// told, and that page, profiles and scanner still agree then.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "controls/editor/PresetField.h"
#include "controls/measurement/CMeasSettingsDlg.h"
#include "core/errors/MDiagnosticsRegistry.h"
#include "core/keys/MRegistryKeyLib.h"
#include "core/locale/MResourceLocale.h"
#include "platform/com/text_array.h"
#include "platform/system/sleep.h"
#include "platform/ui/codes.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"
#include "platform/ui/user.h"
#include "tests/memory_registry.h"
#include "tests/simulator/api/simulator_fixture.h"

namespace hx {
namespace {

using Values = std::array<double, kPresetFieldCount>;
using Answer = ui::Script::Answer;
using By = Answer::By;

constexpr uint32_t kSaveButton = 284;  // of the question whether to save

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
constexpr int32_t kOneOf = 7;
#else
constexpr int32_t kOneOf = 1;
#endif

class MeasurementPageFaults : public SimulatorTest,
                              public testing::WithParamInterface<int32_t>,
                              private MDiagnosticsRegistryImplementation {
protected:
    struct Frame final : ui::Window {};
    struct Step {
        const char* name;
        std::function<void()> run;
        std::vector<Answer> answers = {};
        bool tells = true;  // of failures; else they are logged
        bool is_slow = false;
    };

    static void SetUpTestSuite() {
        SimulatorTest::SetUpTestSuite();
        // Profiles are stored some ten thousand times, for which a disk takes long.
        if (std::filesystem::exists("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
    }
    void SetUp() override {
        SetRegistry(MakeMemoryRegistry());
        for (const uint32_t key : {76, 78, 79, 88, 89}) {
            EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(true));
        }
        ui::SetRenderer(m_renderer);
        SetSleeper([](uint32_t) {});
        SetDiagnosticsRegistry(this);
        SimulatorTest::SetUp();
        m_host.Create(ui::WindowKind::frame, nullptr, {0, 0, 1200, 800});
        m_host.Show(true);
    }
    void TearDown() override {
        m_page.reset();
        m_host.Destroy();
        SetDiagnosticsRegistry(nullptr);
        SetSleeper(nullptr);
        SimulatorTest::TearDown();
        ui::SetRenderer(nullptr);
        SetRegistry(nullptr);
    }

    // A new page, with the profiles of the factory.
    void Begin() {
        m_page.reset();
        DispatchMessages();
        m_hands->ClearFaults();
        const std::filesystem::path folder = m_folder.path() / std::to_string(++m_sessions);
        EXPECT_EQ(m_hands->SetPresetsFolder(Bstr(folder.wstring()).get()), S_OK);
        m_hands->SetConnectionState(HXNotConnected, FALSE);
        m_page = std::make_unique<CMeasSettingsDlg>();
    }
    void Arrive(std::initializer_list<int32_t> states) {
        for (const int32_t state : states) {
            m_hands->SetConnectionState(state, FALSE);
            PostWindowMessage(m_page->Handle(), {WM_HX_CONNECTION_STATE, static_cast<uint64_t>(state), 0});
            DispatchMessages();
        }
    }
    template <class T>
    T& At(uint32_t id) {
        return *m_page->FindAs<T>(id);
    }
    void Choose(std::wstring_view name) {
        User().ClickRow(m_page->ProfileList(), m_page->ProfileList().FindByName(name));
    }
    void Set(uint32_t slider, int32_t position) {
        ui::SetTrackBar(User(), At<ui::TrackBar>(slider), position);
    }
    ui::IUser& User() { return m_renderer->User(); }

    // The boxes of a step.
    size_t Run(const Step& step) {
        ui::Script script;
        for (const Answer& answer : step.answers) script.AnswerModal(answer);
        step.run();
        const auto boxes = script.TakeBoxes();
        for (const auto& box : boxes) EXPECT_FALSE(box.text.empty());
        if (!boxes.empty()) m_last_box = ToUtf8(boxes.back().text);
        return boxes.size();
    }
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
        EXPECT_EQ(NewHandle()->EnumerateDynamicSettingsPresets(Bstr(L"HX").get(), names.put(), shown.put()),
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
            EXPECT_TRUE(on == "CMeasSettingsDlg" || on == "MDynamicSettingsPresets" ||
                        on == "BaseDynamicSettingsDlg")
                << code;
        }
        if (step.tells && !kLogged.contains(operation)) {
            EXPECT_GE(boxes, 1u);
        } else {
            EXPECT_GE(boxes + m_logged, 1u);
        }
    }

    // Whatever has failed before, and nothing does from now on.
    void CheckState(bool may_be_marked) {
        if (!m_page->Session().Api()) return;
        EXPECT_EQ(m_renderer->WaitCursors(), 0);
        const DynamicSettingsData& data = m_page->Data();
        EXPECT_TRUE(data.edit_notifications_enabled);
        const std::tuple<uint32_t, uint32_t, int32_t, int32_t> kNumbers[] = {
            {207, 210, data.laser_power, 1},
            {204, 206, data.exposure, 100},
            {211, 212, static_cast<int32_t>(data.signal_threshold), 1},
            {214, 217, data.edge_filter, 1},
            {218, 219, data.max_inclination, 1}};
        const bool shown_by_controls = m_page->IsCreated() && m_page->IsReady();
        for (const auto& [slider, edit, value, unit] : kNumbers) {
            if (!shown_by_controls) break;
            EXPECT_EQ(At<ui::TrackBar>(slider).Position(), value) << slider;
            EXPECT_EQ(ToUtf8(At<ui::Edit>(edit).Text()), std::to_string(value / unit)) << edit;
        }
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

    const std::vector<Step> m_steps = {
        {"create",
         [this] {
             EXPECT_FALSE(m_page->Create(MResourceLocale::ResourceModule(), m_page->kTemplate, &m_host));
             m_page->Show(true);
         }},
        {"initialise",
         [this] {
             m_arguments.attach(SafeArrayCreateVector(VT_VARIANT, 0, 1));
             m_given = m_arguments.get();
             LONG first = 0;
             const Variant name(std::wstring_view(L"$DARK"));
             VARIANT value = name.get();
             SafeArrayPutElement(m_given, &first, &value);
             m_page->Initialise(L"HXScanner", L"HX", L"", &m_given);
         }},
        {"select", [this] { m_page->OnSelected(); }},
        {"api", [this] { m_page->SetApi(m_api); }},
        {"connect",
         [this] {
             Arrive({2, 1});
         }},
        {"first edit", [this] { User().Click(At<ui::CheckBox>(225)); }},
        {"slider", [this] { Set(207, 61); }},
        {"edit", [this] { User().Type(At<ui::Edit>(212), L"17"); }},
        {"leave the edit", [this] { User().Focus(m_page->ProfileList()); }},
        {"exposure", [this] { User().Type(At<ui::Edit>(206), L"23"); }},
        {"check box", [this] { User().Click(At<ui::CheckBox>(253)); }},
        {"gain", [this] { User().Choose(At<ui::ComboBox>(286), 2); }},
        {"width", [this] { Set(277, 1); }},
        {"height", [this] { Set(276, 1); }},
        {"speed", [this] { Set(289, 1); }},
        {"detect", [this] { User().Click(At<ui::Button>(269)); }, {}, true, true},
        {"another profile, without the edits", [this] { Choose(L"$SHINY"); }, {{By::button, IDOK, {}}}},
        {"edit of it", [this] { User().Type(At<ui::Edit>(217), L"3"); }},
        {"slider of it", [this] { Set(214, 33); }},
        {"save as", [this] { m_page->SaveAsPreset(); }, {{By::button, IDOK, L"Own"}}},
        {"slider of the own one", [this] { Set(218, 44); }},
        {"another profile, with the edits", [this] { Choose(L"$DEFAULT"); }},
        {"deselect", [this] { m_page->OnDeselected(); }, {}, false},
        {"select again", [this] { m_page->OnSelected(); }},
        {"unplug", [this] { Arrive({0}); }, {}, false},
        {"plug",
         [this] {
             Arrive({2, 1});
         }},
        {"slider again", [this] { Set(211, 29); }},
        {"save", [this] { m_page->CommitOnClose(); }, {{By::button, kSaveButton, L"Other"}}},
        {"delete",
         [this] {
             if (!m_page->ProfileList().SelectedName().starts_with(L'$')) m_page->DeletePreset();
         }},
        {"save again", [this] { m_page->CommitOnClose(); }},
        {"close", [this] { m_page->Destroy(); }, {}, false},
    };

    std::unique_ptr<CMeasSettingsDlg> m_page;
    std::map<std::wstring, Values> m_factory;
    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();

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

    Frame m_host;
    SafeArray m_arguments;
    SAFEARRAY* m_given = nullptr;
    int32_t m_sessions = 0;
    std::string m_last_box;
    std::vector<std::string> m_raised;
    size_t m_logged = 0;
};

INSTANTIATE_TEST_SUITE_P(Part, MeasurementPageFaults, testing::Range(0, kParts));

TEST_P(MeasurementPageFaults, EveryCallOfASession) {
    std::vector<std::map<std::string, int32_t>> counts;
    Begin();
    for (const Step& step : m_steps) {
        TakeCalls();
        EXPECT_EQ(Run(step), 0u) << step.name;
        counts.push_back(TakeCalls());
        EXPECT_EQ(counts.back().count("failed"), 0u) << step.name;
        if (!m_factory.empty() || !m_page->Session().Handle()) continue;
        MDynamicSettingsPresets& presets = m_page->Session().Presets();
        for (size_t i = 0; i < presets.Count(); ++i) {
            m_factory[presets.At(i).name] = ValuesOf(*presets.At(i).preset);
        }
    }
    int32_t cases = 0;
    for (size_t place = 0; place < counts.size(); ++place) {
        for (const auto& [operation, count] : counts[place]) {
            for (int32_t nth = 0; nth < count; ++nth) {
                const int32_t number = cases++;
                if (number % kOneOf != 0 || number / kOneOf % kParts != GetParam()) continue;
                CheckCase(place, operation, nth);
            }
        }
    }
    // It changes when a session calls more or less.
    EXPECT_EQ(cases, 1530);
}

}  // namespace
}  // namespace hx
