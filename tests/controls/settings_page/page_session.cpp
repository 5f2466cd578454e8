#include "tests/controls/settings_page/page_session.h"

#include "controls/handheld/CHandheldMeasSettingsDlg.h"
#include "controls/measurement/CMeasSettingsDlg.h"
#include "core/keys/MRegistryKeyLib.h"
#include "core/locale/MResourceLocale.h"
#include "platform/system/sleep.h"
#include "platform/ui/codes.h"
#include "tests/memory_registry.h"

namespace hx {
namespace {

using By = ui::Script::Answer::By;
using Data = DynamicSettingsData;

constexpr uint32_t kSaveButton = 284;  // of the question whether to save

template <class Page>
std::unique_ptr<ScannerSettingsDlg> MakePage() {
    return std::make_unique<Page>();
}

template <auto kMember>
int32_t Value(const Data& data) {
    return static_cast<int32_t>(data.*kMember);
}

void CheckNothing(ScannerSettingsDlg&) {}

// Thresholds without a row select one all the same, or none, which is written as 6.
void CheckThreshold(ScannerSettingsDlg& page) {
    const int32_t threshold = Value<&Data::signal_threshold>(page.Data());
    const int32_t selected = page.FindAs<ui::ComboBox>(282)->Selected();
    EXPECT_TRUE(selected == std::abs(threshold - 5) || (threshold == 6 && selected < 0)) << threshold;
}

}  // namespace

const PageKind kPageKinds[] = {
    {"CMeasSettingsDlg",
     CMeasSettingsDlg::kTemplate,
     &MakePage<CMeasSettingsDlg>,
     L"HX",
     L"HXScanner",
     L"HX",
     {{212, L"17"}, {217, L"3"}},
     {{207, 61}, {214, 33}, {218, 44}, {211, 29}},
     2,
     {{207, 210, &Value<&Data::laser_power>, 1},
      {204, 206, &Value<&Data::exposure>, 100},
      {211, 212, &Value<&Data::signal_threshold>, 1},
      {214, 217, &Value<&Data::edge_filter>, 1},
      {218, 219, &Value<&Data::max_inclination>, 1}},
     {},
     1530,
     &CheckNothing},
    {"CHandheldMeasSettingsDlg",
     CHandheldMeasSettingsDlg::kTemplate,
     &MakePage<CHandheldMeasSettingsDlg>,
     L"Handheld",
     L"HXHandheldScanner",
     L"HXHandheld",
     {{210, L"17"}, {206, L"44"}},
     {{207, 61}, {204, 3300}, {204, 4400}, {204, 2900}},
     0,
     {{207, 210, &Value<&Data::laser_power>, 1, 101}, {204, 206, &Value<&Data::exposure>, 100, 10100}},
     {"GetFrameRate"},
     1408,
     &CheckThreshold},
};

void PageSession::SetUpTestSuite() {
    SimulatorTest::SetUpTestSuite();
    // Profiles are stored some ten thousand times, for which a disk takes long.
    if (std::filesystem::exists("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
}

void PageSession::SetUp() {
    SetRegistry(MakeMemoryRegistry());
    for (const uint32_t key : {76, 77, 78, 79, 88, 89}) {
        EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(true));
    }
    ui::SetRenderer(m_renderer);
    SetSleeper([](uint32_t) {});
    SimulatorTest::SetUp();
    EXPECT_EQ(m_hands->SetModel(Bstr(Kind().model).get()), S_OK);
    m_host.Create(ui::WindowKind::frame, nullptr, {0, 0, 1200, 800});
    m_host.Show(true);
}

void PageSession::TearDown() {
    m_page.reset();
    m_host.Destroy();
    SetSleeper(nullptr);
    SimulatorTest::TearDown();
    ui::SetRenderer(nullptr);
    SetRegistry(nullptr);
}

void PageSession::Begin() {
    m_page.reset();
    DispatchMessages();
    m_hands->ClearFaults();
    const std::filesystem::path folder = m_folder.path() / std::to_string(++m_sessions);
    EXPECT_EQ(m_hands->SetPresetsFolder(Bstr(folder.wstring()).get()), S_OK);
    m_hands->SetConnectionState(HXNotConnected, FALSE);
    m_page = Kind().make();
}

void PageSession::Arrive(std::initializer_list<int32_t> states) {
    for (const int32_t state : states) {
        m_hands->SetConnectionState(state, FALSE);
        PostWindowMessage(m_page->Handle(), {WM_HX_CONNECTION_STATE, static_cast<uint64_t>(state), 0});
        DispatchMessages();
    }
}

std::function<void()> PageSession::Act(std::function<bool()> act) {
    return [this, act] { m_not_done += act() ? 0 : 1; };
}

size_t PageSession::Run(const Step& step) {
    ui::Script script;
    for (const Answer& answer : step.answers) script.AnswerModal(answer);
    step.run();
    const auto boxes = script.TakeBoxes();
    for (const auto& box : boxes) EXPECT_FALSE(box.text.empty());
    if (!boxes.empty()) m_last_box = ToUtf8(boxes.back().text);
    return boxes.size();
}

void PageSession::Initialise() {
    m_arguments.attach(SafeArrayCreateVector(VT_VARIANT, 0, 1));
    m_given = m_arguments.get();
    LONG first = 0;
    const Variant name(std::wstring_view(L"$DARK"));
    VARIANT value = name.get();
    SafeArrayPutElement(m_given, &first, &value);
    m_page->Initialise(Kind().driver, Kind().device, L"", &m_given);
}

std::vector<PageSession::Step> PageSession::Steps() {
    struct Row {
        Step step;
        std::optional<KindOfPage> only = {};
    };
    const PageKind& kind = Kind();
    const auto click = [this](uint32_t box) { return Act([=, this] { return User().Click(At<>(box)); }); };
    const auto move = [this](const Moved& to) {
        return Act([=, this] { return ui::SetTrackBar(User(), At<ui::TrackBar>(to.slider), to.position); });
    };
    const auto type = [this](const Typed& typed) {
        return Act([=, this] { return User().Type(At<ui::Edit>(typed.edit), typed.text); });
    };
    const auto choose = [this](const wchar_t* name) {
        return Act([=, this] {
            CProfileListBox& list = m_page->ProfileList();
            return User().ClickRow(list, list.FindByName(name));
        });
    };
    const auto row = [this](uint32_t list, int32_t place) {
        return Act([=, this] { return User().Choose(At<ui::ComboBox>(list), place); });
    };
    const auto arrive = [this](auto... states) { return [this, states...] { Arrive({states...}); }; };
    const auto leave = [this] { m_page->OnDeselected(); };
    const auto select = [this] { m_page->OnSelected(); };
    const auto close = [this] { m_page->CommitOnClose(); };
    const Row rows[] = {
        {{"create",
          [this, &kind] {
              EXPECT_FALSE(m_page->Create(MResourceLocale::ResourceModule(), kind.dialog, &m_host));
              m_page->Show(true);
          }}},
        {{"initialise", [this] { Initialise(); }}},
        {{"select", select}},
        {{"api", [this] { m_page->SetApi(m_api); }}},
        {{"connect", arrive(2, 1)}},
        {{"first edit", click(225)}},
        {{"power by hand", click(224)}, kHandheld},
        {{"slider", move(kind.sliders[0])}},
        {{"edit", type(kind.edits[0])}},
        {{"leave the edit", Act([this] { return User().Focus(m_page->ProfileList()); })}},
        {{"exposure", type({206, L"23"})}},
        {{"check box", click(253)}},
        {{"gain", row(286, kind.gain)}},
        {{"threshold", row(282, 3)}, kHandheld},
        {{"width", move({277, 1})}},
        {{"height", move({276, 1})}},
        {{"speed", move({289, 1})}, kMeasurement},
        {{"indicator", click(275)}, kHandheld},
        {{"detect", click(269), {}, true, true}},
        {{"another profile, without the edits", choose(L"$SHINY"), {{By::button, IDOK, {}}}}},
        {{"edit of it", type(kind.edits[1])}},
        {{"slider of it", move(kind.sliders[1])}},
        {{"save as", [this] { m_page->SaveAsPreset(); }, {{By::button, IDOK, L"Own"}}}},
        {{"slider of the own one", move(kind.sliders[2])}},
        {{"another profile, with the edits", choose(L"$DEFAULT")}},
        {{"deselect", leave, {}, false}},
        {{"select again", select}},
        {{"unplug", arrive(0), {}, false}},
        {{"plug", arrive(2, 1)}},
        {{"suspend", arrive(2)}, kHandheld},
        {{"leave it so", leave, {}, false}, kHandheld},
        {{"return to it", select}, kHandheld},
        {{"resumed", arrive(1)}, kHandheld},
        {{"slider again", move(kind.sliders[3])}},
        {{"save", close, {{By::button, kSaveButton, L"Other"}}}},
        {{"delete",
          [this] {
              if (!m_page->ProfileList().SelectedName().starts_with(L'$')) m_page->DeletePreset();
          }}},
        {{"save again", close}},
        {{"close", [this] { m_page->Destroy(); }, {}, false}},
    };
    std::vector<Step> steps;
    for (const Row& each : rows) {
        if (!each.only || &kPageKinds[*each.only] == &kind) steps.push_back(each.step);
    }
    return steps;
}

}  // namespace hx
