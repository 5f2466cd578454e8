#include "tests/platform/ui/behaviour_fixture.h"

#include <map>
#include <stdexcept>

#include "platform/system/utf8.h"

namespace hx_test {
namespace {

using hx::ui::Control;
using hx::ui::ControlKind;

constexpr wchar_t kScript[] =
    LR"(
100 DIALOGEX 0, 0, 240, 140
STYLE DS_SETFONT | WS_CHILD
FONT 8, "MS Shell Dlg"
BEGIN
    GROUPBOX      "P&rofiles", 10, 4, 4, 80, 130
    LISTBOX       11, 8, 14, 72, 116, LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP
    LTEXT         "&Power %", IDC_STATIC, 90, 6, 60, 8
    CONTROL       "", 12, "msctls_trackbar32", TBS_HORZ | TBS_NOTICKS | WS_TABSTOP, 90, 16, 80, 15
    EDITTEXT      13, 174, 17, 40, 12, ES_AUTOHSCROLL | WS_TABSTOP
    AUTOCHECKBOX  "&Automatic", 14, 90, 36, 72, 10, WS_TABSTOP
    LTEXT         "&Gain", IDC_STATIC, 90, 50, 30, 8
    COMBOBOX      15, 122, 48, 40, 60, CBS_DROPDOWNLIST | WS_TABSTOP
    PUSHBUTTON    "&Detect", 16, 90, 66, 64, 14, WS_TABSTOP
    CONTROL       "", 17, "msctls_trackbar32", TBS_VERT | TBS_DOWNISLEFT | WS_TABSTOP, 220, 4, 16, 130
    PUSHBUTTON    "Hidden", 18, 90, 84, 64, 14, NOT WS_VISIBLE | WS_TABSTOP
END
200 DIALOGEX 0, 0, 200, 60
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
CAPTION "Save profile"
FONT 8, "MS Shell Dlg"
BEGIN
    LTEXT         "&Name:", IDC_STATIC, 8, 8, 184, 8
    EDITTEXT      20, 8, 18, 184, 14, ES_AUTOHSCROLL | WS_TABSTOP
    PUSHBUTTON    "Dis&card", 21, 8, 40, 56, 14, WS_TABSTOP
    DEFPUSHBUTTON "&Save && go", IDOK, 70, 40, 56, 14, WS_TABSTOP
    PUSHBUTTON    "Cancel", IDCANCEL, 132, 40, 56, 14, WS_TABSTOP
END
)";

using Names = std::map<uint32_t, std::string>;
const Names kScrollNames = {{TB_LINEUP, "TB_LINEUP"},
                            {TB_LINEDOWN, "TB_LINEDOWN"},
                            {TB_PAGEUP, "TB_PAGEUP"},
                            {TB_PAGEDOWN, "TB_PAGEDOWN"},
                            {TB_THUMBPOSITION, "TB_THUMBPOSITION"},
                            {TB_THUMBTRACK, "TB_THUMBTRACK"},
                            {TB_TOP, "TB_TOP"},
                            {TB_BOTTOM, "TB_BOTTOM"},
                            {TB_ENDTRACK, "TB_ENDTRACK"}};
const Names kEditNames = {{EN_SETFOCUS, "EN_SETFOCUS"},
                          {EN_KILLFOCUS, "EN_KILLFOCUS"},
                          {EN_CHANGE, "EN_CHANGE"},
                          {EN_UPDATE, "EN_UPDATE"}};

std::string CommandName(const Control& control, uint32_t code) {
    switch (control.Kind()) {
        case ControlKind::edit:
            return kEditNames.at(code);
        case ControlKind::combo_box:
            return code == CBN_SELCHANGE ? "CBN_SELCHANGE" : std::to_string(code);
        case ControlKind::list_box:
            return code == LBN_SELCHANGE ? "LBN_SELCHANGE" : std::to_string(code);
        default:
            return code == BN_CLICKED ? "BN_CLICKED" : std::to_string(code);
    }
}

hx::ui::IRenderer& TheRenderer() {
    static const std::shared_ptr<hx::ui::IRenderer> renderer = MakeTestRenderer();
    if (!renderer) throw std::runtime_error("no renderer");
    hx::ui::SetRenderer(renderer);
    return *renderer;
}

}  // namespace

hx::ModuleHandle TestModule() {
    static const hx::ModuleHandle module = [] {
        hx::ResourceError error;
        std::optional<hx::Resources> resources = hx::ReadResourceScript(kScript, error);
        if (!resources) throw std::runtime_error(hx::ToUtf8(error.text));
        return hx::MakeResourceModule(L"/test/behaviour.so", std::move(*resources));
    }();
    return module;
}

void TestDialog::OnCommand(Control& control, uint32_t code) {
    m_events.push_back(std::to_string(control.Id()) + " " + CommandName(control, code));
    const auto handler = on_command;  // which may destroy this dialog
    if (handler) handler(control, code);
}

void TestDialog::OnScroll(hx::ui::TrackBar& track_bar, uint32_t code, int32_t position) {
    m_events.push_back(std::to_string(track_bar.Id()) + " " + kScrollNames.at(code) + " " +
                       std::to_string(position));
}

bool TestDialog::OnInitDialog() {
    if (on_init) on_init();
    return true;
}

void TestDialog::OnOk() {
    if (on_ok) return on_ok();
    Dialog::OnOk();
}

Behaviour::Behaviour() : renderer(TheRenderer()), user(renderer.User()) {
    frame.Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 600, 400});
    if (page->Create(TestModule(), kPage, &frame)) throw std::runtime_error("no page");
    page->Show(true);
    frame.Show(true);
    renderer.Pump();
    page->SetFocus(nullptr);
    page->TakeEvents();
}

Behaviour::~Behaviour() {
    EXPECT_EQ(script.Unanswered(), expected_unanswered);
    page.reset();
    frame.Destroy();
    renderer.Pump();
}

}  // namespace hx_test
