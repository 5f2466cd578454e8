#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "platform/module/script_resources.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

constexpr uint32_t kFrameOfDialog = 0x80880000;  // WS_POPUP | WS_BORDER | WS_SYSMENU
constexpr uint32_t kCaptionStyle = 0x00C00000;   // WS_CAPTION
constexpr uint32_t kFontStyle = 0x40;            // DS_SETFONT
constexpr uint32_t kShownChild = 0x50000000;     // WS_CHILD | WS_VISIBLE

// The statements that need neither class nor style, and what they stand for besides kShownChild.
struct ControlStatement {
    std::wstring_view word;
    std::wstring_view window_class;
    uint32_t style;
    bool has_text;
};
constexpr ControlStatement kControlStatements[] = {
    {L"LTEXT", L"Static", 0x00020000, true},            // SS_LEFT | WS_GROUP
    {L"CTEXT", L"Static", 0x00020001, true},            // SS_CENTER | WS_GROUP
    {L"RTEXT", L"Static", 0x00020002, true},            // SS_RIGHT | WS_GROUP
    {L"GROUPBOX", L"Button", 0x00000007, true},         // BS_GROUPBOX
    {L"PUSHBUTTON", L"Button", 0x00010000, true},       // BS_PUSHBUTTON | WS_TABSTOP
    {L"DEFPUSHBUTTON", L"Button", 0x00010001, true},    // BS_DEFPUSHBUTTON | WS_TABSTOP
    {L"CHECKBOX", L"Button", 0x00010002, true},         // BS_CHECKBOX | WS_TABSTOP
    {L"AUTOCHECKBOX", L"Button", 0x00010003, true},     // BS_AUTOCHECKBOX | WS_TABSTOP
    {L"AUTORADIOBUTTON", L"Button", 0x00000009, true},  // BS_AUTORADIOBUTTON
    {L"EDITTEXT", L"Edit", 0x00810000, false},          // ES_LEFT | WS_BORDER | WS_TABSTOP
    {L"COMBOBOX", L"ComboBox", 0, false},
    {L"LISTBOX", L"ListBox", 0x00800001, false},  // LBS_NOTIFY | WS_BORDER
};

// Window classes compare without case; pages find them in this spelling.
constexpr std::wstring_view kWindowClasses[] = {
    L"Button", L"ComboBox", L"Edit", L"ListBox", L"ScrollBar", L"Static", L"msctls_trackbar32"};

void ExpectComma(ScriptParser& parser) {
    parser.ExpectMark(L',', L"\",\"");
}

DialogRectangle ReadRectangle(ScriptParser& parser) {
    DialogRectangle rectangle;
    rectangle.x = parser.ExpectNumber(L"x", INT16_MIN, INT16_MAX);
    ExpectComma(parser);
    rectangle.y = parser.ExpectNumber(L"y", INT16_MIN, INT16_MAX);
    ExpectComma(parser);
    rectangle.width = parser.ExpectNumber(L"a width", 0, INT16_MAX);
    ExpectComma(parser);
    rectangle.height = parser.ExpectNumber(L"a height", 0, INT16_MAX);
    return rectangle;
}

std::wstring ReadWindowClass(ScriptParser& parser) {
    const uint32_t line = parser.Line();
    std::wstring name = parser.IsText() ? parser.ExpectText(L"") : parser.ExpectName(L"a window class");
    if (name.empty()) throw ScriptError{line, L"expected a window class, found an empty text"};
    const auto* const known =
        std::ranges::find_if(kWindowClasses, [&](auto each) { return EqualsWithoutCase(each, name); });
    return known == std::end(kWindowClasses) ? std::move(name) : std::wstring(*known);
}

// What every control has behind its text: id, for CONTROL the class and the style, rectangle, more styles.
void ReadControl(ScriptParser& parser, const ControlStatement* statement, DialogControl& control) {
    uint32_t style = kShownChild;
    if (!statement || statement->has_text) {
        control.text = parser.ExpectText(L"the text of a control");
        ExpectComma(parser);
    }
    control.id = static_cast<uint32_t>(parser.ExpectNumber(L"the id of a control", -1, UINT16_MAX));
    ExpectComma(parser);
    if (statement) {
        control.window_class = statement->window_class;
        style |= statement->style;
    } else {
        control.window_class = ReadWindowClass(parser);
        ExpectComma(parser);
        style = parser.ExpectStyle(L"a style").Over(style);
        ExpectComma(parser);
    }
    control.rectangle = ReadRectangle(parser);
    if (statement && parser.AcceptMark(L',')) style = parser.ExpectStyle(L"a style").Over(style);
    control.style = style;
    if (parser.AcceptMark(L',')) control.extended_style = parser.ExpectStyle(L"an extended style").Over(0);
}

const ControlStatement* AcceptStatement(ScriptParser& parser) {
    const auto* const found = std::ranges::find_if(
        kControlStatements, [&](const ControlStatement& each) { return parser.AcceptWord(each.word); });
    if (found != std::end(kControlStatements)) return found;
    if (!parser.AcceptWord(L"CONTROL"))
        parser.FailExpected(L"a control (CONTROL, LTEXT, PUSHBUTTON, ...) or END");
    return nullptr;
}

std::vector<DialogControl> ReadControls(ScriptParser& parser) {
    std::vector<DialogControl> controls;
    std::set<uint32_t> ids;
    for (const uint32_t begin = parser.BeginBlock(L"a statement of the dialog or BEGIN");
         !parser.EndBlock(begin);) {
        const uint32_t line = parser.Line();
        if (controls.size() == UINT16_MAX)
            throw ScriptError{line, L"the dialog has more than 65535 controls"};
        const ControlStatement* const statement = AcceptStatement(parser);
        DialogControl& control = controls.emplace_back();
        ReadControl(parser, statement, control);
        // Both are the id of what nobody asks for.
        if (control.id == UINT16_MAX) control.id = kNoControlId;
        if (control.id != kNoControlId && !ids.insert(control.id).second) {
            throw ScriptError{line,
                              L"the dialog has two controls with the id " + std::to_wstring(control.id)};
        }
    }
    return controls;
}

void ReadFont(ScriptParser& parser, DialogTemplate& dialog) {
    dialog.font_points = static_cast<uint32_t>(parser.ExpectNumber(L"a font size", 1, INT16_MAX));
    ExpectComma(parser);
    dialog.font_face = parser.ExpectText(L"a font name");
    // The rest describes the same font once more.
    if (parser.AcceptMark(L',')) parser.ExpectNumber(L"a font weight", 0, 1000);
    if (parser.AcceptMark(L',')) parser.ExpectNumber(L"italic", 0, 255);
    if (parser.AcceptMark(L',')) parser.ExpectNumber(L"a character set", 0, 255);
}

}  // namespace

DialogTemplate ReadDialog(ScriptParser& parser) {
    DialogTemplate dialog;
    parser.SkipAttributes();
    dialog.rectangle = ReadRectangle(parser);
    dialog.style = kFrameOfDialog;
    uint32_t stated = 0;
    while (true) {
        parser.SkipAttributes();
        if (parser.AcceptWord(L"STYLE")) {
            dialog.style = parser.ExpectStyle(L"a style").Over(0);
        } else if (parser.AcceptWord(L"EXSTYLE")) {
            dialog.extended_style = parser.ExpectStyle(L"an extended style").Over(0);
        } else if (parser.AcceptWord(L"CAPTION")) {
            dialog.caption = parser.ExpectText(L"a caption");
            stated |= kCaptionStyle;
        } else if (parser.AcceptWord(L"FONT")) {
            ReadFont(parser, dialog);
            stated |= kFontStyle;
        } else {
            break;
        }
    }
    // As the system's resource compiler has it: DS_SETFONT comes from FONT alone, and CAPTION adds
    // WS_CAPTION.
    dialog.style = (dialog.style & ~kFontStyle) | stated;
    dialog.controls = ReadControls(parser);
    return dialog;
}

}  // namespace hx
