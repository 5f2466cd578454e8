#include "platform/ui/dialog_kinds.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "platform/ui/codes.h"
#include "platform/ui/component_control.h"
#include "platform/ui/controls.h"
#include "platform/ui/list_box.h"

namespace hx::ui {
namespace {

constexpr uint32_t kAnyStyle = 0;  // no bits are asked for

struct KindRow {
    std::wstring_view window_class;
    uint32_t style_mask;
    uint32_t style;
    ControlKind kind;
};

constexpr KindRow kKinds[] = {
    {L"Static", kAnyStyle, kAnyStyle, ControlKind::static_text},
    {L"Button", BS_TYPEMASK, BS_PUSHBUTTON, ControlKind::button},
    {L"Button", BS_TYPEMASK, BS_DEFPUSHBUTTON, ControlKind::button},
    {L"Button", BS_TYPEMASK, BS_AUTOCHECKBOX, ControlKind::check_box},
    {L"Button", BS_TYPEMASK, BS_GROUPBOX, ControlKind::static_text},
    {L"Edit", kAnyStyle, kAnyStyle, ControlKind::edit},
    {L"ComboBox", kAnyStyle, kAnyStyle, ControlKind::combo_box},
    {L"ListBox", kAnyStyle, kAnyStyle, ControlKind::list_box},
    {L"msctls_trackbar32", kAnyStyle, kAnyStyle, ControlKind::track_bar},
};

// A class id, or a ProgID, which no window class of the system looks like.
bool IsComponentClass(std::wstring_view name) {
    return name.starts_with(L'{') || name.find(L'.') != std::wstring_view::npos;
}

template <class T>
std::unique_ptr<Control> Make() {
    return std::make_unique<T>();
}

struct MakerRow {
    ControlKind kind;
    std::unique_ptr<Control> (*make)();
};

constexpr MakerRow kMakers[] = {
    {ControlKind::static_text, &Make<StaticText>}, {ControlKind::button, &Make<Button>},
    {ControlKind::check_box, &Make<CheckBox>},     {ControlKind::edit, &Make<Edit>},
    {ControlKind::combo_box, &Make<ComboBox>},     {ControlKind::list_box, &Make<ListBox>},
    {ControlKind::track_bar, &Make<TrackBar>},     {ControlKind::component, &Make<ComponentControl>},
};

}  // namespace

std::optional<ControlKind> KindOfLine(const DialogControl& line) {
    if (IsComponentClass(line.window_class)) return ControlKind::component;
    const auto* const found = std::find_if(std::begin(kKinds), std::end(kKinds), [&](const KindRow& row) {
        return row.window_class == line.window_class && (line.style & row.style_mask) == row.style;
    });
    return found == std::end(kKinds) ? std::nullopt : std::optional(found->kind);
}

bool IsNamedByText(ControlKind kind) {
    return kind == ControlKind::static_text || kind == ControlKind::button || kind == ControlKind::check_box;
}

std::unique_ptr<Control> MakeControlOf(ControlKind kind) {
    const auto* const found = std::find_if(std::begin(kMakers), std::end(kMakers),
                                           [&](const MakerRow& row) { return row.kind == kind; });
    return found == std::end(kMakers) ? nullptr : found->make();
}

}  // namespace hx::ui
