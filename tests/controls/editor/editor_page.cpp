#include "tests/controls/editor/editor_page.h"

#include <algorithm>

#include "platform/system/case_fold.h"

namespace editing {
namespace {

constexpr uint32_t kTemplate = 203;
constexpr uint32_t kLaserPowerSlider = 207;
constexpr uint32_t kPreview = 106;
// Of the dialog that asks for names.
constexpr uint32_t kCustom = 284;

// The dialog of the measurement page with a frame for its preview, which is a component of its own.
hx::ModuleHandle PageResources() {
    static const hx::ModuleHandle module = [] {
        hx::Resources resources = hx::MResourceLocale::ResourceModule()->GetResources();
        for (hx::DialogControl& control : resources.dialogs[kTemplate].controls) {
            if (control.id == kPreview) control.window_class = L"Static";
        }
        return hx::MakeResourceModule(L"", std::move(resources));
    }();
    return module;
}

std::string Trimmed(std::string text) {
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(Trimmed(part));
    return parts;
}

// "what argument", the latter with all its blanks but the first.
std::pair<std::string, std::string> Words(const std::string& text) {
    const size_t blank = std::min(text.find(' '), text.size());
    return {text.substr(0, blank), blank < text.size() ? text.substr(blank + 1) : ""};
}

hx::ui::Script::Answer AnswerOf(const std::string& text, bool prompt) {
    const auto [what, name] = Words(text);
    hx::ui::Script::Answer answer;
    answer.button = IDCANCEL;
    if (what == "discard") answer.button = IDOK;
    if (what != "save") return answer;
    answer.button = prompt ? kCustom : IDOK;
    answer.typed = Wide(name);
    return answer;
}

void DoNotSleep(uint32_t) {}

}  // namespace

Page::Page(const scripted::Script& script, hx::ui::Window& parent)
    : BaseDynamicSettingsDlg(hx::kHandheldSession), m_script(script) {
    Bind(kProfileList, ProfileList());
    Bind(kLaserPowerSlider, laser_power);
    EXPECT_FALSE(Create(PageResources(), kTemplate, &parent));
    laser_power.SetRange(1, 100);
    EnableControls(false);
    Show(true);
}

Page::~Page() {
    Session().OnDestroy();
    Destroy();
}

int32_t Page::Shown() const {
    EXPECT_EQ(laser_power.Position(), Data().laser_power);
    return laser_power.Position();
}

void Page::OnMessage(const hx::WindowMessage& message) {
    if (message.id == hx::WM_HX_CONNECTION_STATE) {
        Session().OnConnectionStateChange(hx::ConnectionStateOf(message));
    }
}

void Page::OnCommand(hx::ui::Control& control, uint32_t code) {
    if (&control == &ProfileList() && code == LBN_SELCHANGE) OnPresetSelectionChanged();
}

void Page::OnScroll(hx::ui::TrackBar&, uint32_t code, int32_t) {
    if (code == TB_ENDTRACK) return;
    Attempt([&](const Scope&) { OnSettingChanged(true); });
}

void Page::UpdateSettingsFromUI(bool) {
    if (!IsReady()) return;
    Data().laser_power = laser_power.Position();
    BaseDataToSettings(*WorkingPreset());
}

void Page::EnableControls(bool enable) noexcept {
    laser_power.Enable(enable);
}

bool Page::SetProfile(const hx::ComPtr<IDynamicSettingsPreset>& preset) {
    const auto show_record = [&] { laser_power.SetPosition(Data().laser_power); };
    return ShowOrPutBack(
        [&] {
            BaseSettingsToData(*preset);
            show_record();
            EnableControls(true);
            ApplySettingsToHardware(preset);
        },
        show_record);
}

void Page::ApplySettingsToHardware(const hx::ComPtr<IDynamicSettingsPreset>& preset) {
    Session().ApplySettingsToHardware(preset, false);
}

void Page::FillGainList() {
    SupportedGains().clear();
    for (const std::wstring& gain : m_script.gains) {
        SupportedGains().push_back(static_cast<uint32_t>(std::stoul(gain)));
    }
}

Bench::Bench(const std::vector<std::string>& presets, const std::string& selected)
    : m_before(hx::ui::SetRenderer(m_renderer)), m_sleeper(hx::SetSleeper(DoNotSleep)) {
    script.properties = scripted::PropertiesOf(L"device");
    script.names.clear();
    script.display_names.clear();
    for (const std::string& preset : presets) {
        const size_t equals = preset.find('=');
        const size_t colon = preset.find(':');
        script.names.push_back(Wide(preset.substr(0, equals)));
        script.display_names.push_back(Wide(preset.substr(equals + 1, colon - equals - 1)));
        script.values[script.names.back()].laser_power = std::stod(preset.substr(colon + 1));
    }
    script.selected = Wide(selected);
    m_host.Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 1000, 600});
    m_host.Show(true);
    page = std::make_unique<Page>(script, m_host);
    m_api = hx::Make<scripted::Api>(script).as<IHXApi>();
    hx::SessionTarget& target = page->Session().Target();
    target = {true, L"driver", L"device", script.selected};
    Presets().SetNames(L"driver", L"device");
    page->Session().OnSelected();
    const hx::ui::Script boxes;
    page->Session().SetApi(m_api);
    script.calls.clear();
}

Bench::~Bench() {
    page.reset();
    m_host.Destroy();
    m_api.reset();
    EXPECT_EQ(script.alive, 0);
    EXPECT_EQ(unanswered, 0U);
    EXPECT_EQ(m_renderer->Unscripted(), 0U);
    hx::SetSleeper(m_sleeper);
    hx::ui::SetRenderer(m_before);
}

void Bench::Do(const std::string& steps) {
    for (const std::string& step : Split(steps, ';')) {
        if (!step.empty()) DoStep(step);
    }
}

void Bench::DoStep(const std::string& step) {
    const size_t question = std::min(step.find('?'), step.size());
    const auto [what, argument] = Words(Trimmed(step.substr(0, question)));
    hx::ui::Script operator_script;
    const bool prompt = what != "saveas" && what != "rename";
    if (question < step.size()) {
        for (const std::string& answer : Split(step.substr(question + 1), ',')) {
            operator_script.AnswerModal(AnswerOf(answer, prompt));
        }
    }
    operator_script.AnswerModal(AnswerOf("cancel", prompt));
    operator_script.while_modal = [&](hx::ui::Dialog&) {
        if (while_asked) std::exchange(while_asked, nullptr)();
    };
    operator_script.while_box = [&] {
        if (while_box) std::exchange(while_box, nullptr)();
    };
    Run(what, argument);
    unanswered += operator_script.Unanswered();
    for (const auto& box : operator_script.TakeBoxes()) m_boxes.push_back(hx::ToUtf8(box.text));
}

void Bench::Run(const std::string& what, const std::string& argument) {
    hx::ui::IUser& user = m_renderer->User();
    hx::CProfileListBox& list = page->ProfileList();
    const size_t equals = std::min(argument.find('='), argument.size() - 1);
    if (what == "edit") {
        // What is disabled cannot be moved.
        if (user.Drag(page->laser_power, std::stoi(argument))) user.Drop(page->laser_power);
    } else if (what == "select") {
        const int32_t row = list.FindByName(Wide(argument));
        if (row >= 0) user.ClickRow(list, row);
    } else if (what == "saveas") {
        page->SaveAsPreset();
    } else if (what == "rename") {
        user.Key(list, VK_F2);
    } else if (what == "discard") {
        // The menu offers it for edits alone.
        if (page->IsModified()) page->DiscardChanges();
    } else if (what == "delete") {
        user.Key(list, VK_DELETE);
    } else if (what == "close") {
        committed = page->CommitOnClose();
    } else if (what == "initialise") {
        page->SetProfileToSelect(Wide(argument));
    } else if (what == "remove") {
        Presets().RemovePreset(Wide(argument));
    } else if (what == "move") {
        Presets().Rename(Wide(argument.substr(0, equals)), Wide(argument.substr(equals + 1)));
    } else if (what == "fail") {
        script.fails_once = true;
        script.failures = {{argument, {E_ABORT, 0}}};
    } else if (what == "change") {
        const auto preset = Presets().FindPresetExactly(Wide(argument.substr(0, equals)));
        if (preset) {
            static_cast<scripted::Preset&>(*preset).values.laser_power =
                std::stod(argument.substr(equals + 1));
        }
    } else if (what == "unplug" || what == "plug") {
        script.state = what == "plug" ? HXConnected : HXNotConnected;
        page->Session().OnConnectionStateChange(script.state);
    } else {
        ADD_FAILURE() << what;
    }
}

std::string PowerText(double power) {
    std::ostringstream text;
    text << power;
    return text.str();
}

std::map<std::string, double> Bench::Stored() {
    std::map<std::string, double> stored;
    for (size_t i = 0; i < Presets().Count(); ++i) {
        const auto& preset = static_cast<const scripted::Preset&>(*Presets().At(i).preset);
        stored[hx::ToUtf8(Presets().At(i).name)] = preset.values.laser_power;
    }
    return stored;
}

std::string Bench::State() {
    const hx::CProfileListBox& list = page->ProfileList();
    const auto stored = Stored();
    std::string text;
    for (int32_t i = 0; i < list.Count(); ++i) {
        const auto found = stored.find(hx::ToUtf8(list.Row(i).name));
        text += hx::ToUtf8(list.RowText(i)) + ":" +
                (found != stored.end() ? PowerText(found->second) : "gone") +
                (i == list.Selected() ? "< " : " ");
    }
    return text + (page->laser_power.IsEnabled() ? std::to_string(page->Shown()) : "disabled");
}

std::string Bench::Wrong(bool current_is_selected) {
    const hx::CProfileListBox& list = page->ProfileList();
    if (unanswered != 0) return "a question without an answer";
    if (page->ProfileList().Count() == 0) return page->IsModified() ? "edits of nothing" : "";
    const std::wstring current = page->GetCurrentPresetName();
    const int32_t alike = list.FindByName(current);
    const bool listed = alike >= 0 && list.Row(alike).name == current;
    // Nor is another one, where there are edits of a profile that is gone.
    if (list.Selected() < 0) return listed || !page->IsModified() ? "no row is selected" : "";
    if (!listed && page->IsModified()) return "edits of another row";
    if (current_is_selected && list.SelectedName() != current) return "another row is selected";
    std::pair<uint32_t, std::wstring> before;
    for (int32_t i = 0; i < list.Count(); ++i) {
        const hx::ProfileRow& row = list.Row(i);
        if (row.modified != (list.RowText(i).front() == L'*')) return "the mark is not the text's";
        if (row.modified != (row.name == current && page->IsModified())) return "the mark is wrong";
        const std::pair<uint32_t, std::wstring> order = {row.user_defined,
                                                         hx::FoldCase(Presets().DisplayName(row.name))};
        if (order < before) return "the rows are not in order";
        before = order;
    }
    return "";
}

std::string Bench::Boxes() {
    std::string text;
    for (const std::string& box : std::exchange(m_boxes, {})) text += (text.empty() ? "" : " | ") + box;
    return text;
}

}  // namespace editing
