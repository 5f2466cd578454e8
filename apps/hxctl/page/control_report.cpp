#include "apps/hxctl/page/control_report.h"

#include <iterator>

#include "platform/system/utf8.h"
#include "platform/ui/controls.h"
#include "platform/ui/list_box.h"

namespace hxctl {
namespace {

using hx::ui::Control;

// In the order of ControlKind.
constexpr const char* kKinds[] = {"static",    "button",   "check box", "edit",
                                  "combo box", "list box", "track bar", "component"};

template <class T>
const T* As(const Control& control) {
    return dynamic_cast<const T*>(&control);
}

void ReportValue(const Control& control, Json& report) {
    if (const auto* const track_bar = As<hx::ui::TrackBar>(control)) {
        report["position"] = track_bar->Position();
        report["min"] = track_bar->Minimum();
        report["max"] = track_bar->Maximum();
    } else if (const auto* const check_box = As<hx::ui::CheckBox>(control)) {
        report["checked"] = check_box->IsChecked();
    } else if (const auto* const combo_box = As<hx::ui::ComboBox>(control)) {
        Json& items = report["items"] = Json::array();
        for (const std::wstring& each : combo_box->Items()) items.push_back(hx::ToUtf8(each));
        report["selected"] = combo_box->Selected();
    } else if (const auto* const list = As<hx::ui::ListBox>(control)) {
        Json& items = report["items"] = Json::array();
        for (int32_t i = 0; i < list->Count(); ++i) items.push_back(hx::ToUtf8(list->RowText(i)));
        report["selected"] = list->Selected();
    } else if (const auto* const edit = As<hx::ui::Edit>(control)) {
        report["valid"] = edit->HoldsValidText();
    }
}

}  // namespace

std::string IdText(uint32_t id) {
    return std::to_string(static_cast<int32_t>(id));
}

Json Report(const Control& control) {
    const auto* const text = As<hx::ui::StaticText>(control);
    const hx::ui::Rectangle& bounds = control.Bounds();
    Json report = {
        {"id", static_cast<int32_t>(control.Id())},
        {"kind", text && text->IsGroup() ? "group" : kKinds[static_cast<size_t>(control.Kind())]},
        {"text", hx::ToUtf8(control.Text())},
        {"enabled", control.IsEnabled()},
        {"visible", control.IsVisible()},
        {"rect",
         {{"left", bounds.left}, {"top", bounds.top}, {"right", bounds.right}, {"bottom", bounds.bottom}}}};
    ReportValue(control, report);
    report["tooltip"] = hx::ToUtf8(control.ToolTip());
    return report;
}

const char* IconName(hx::ui::BoxIcon icon) {
    constexpr const char* kIcons[] = {"none", "information", "warning", "error"};
    return kIcons[static_cast<size_t>(icon)];
}

Json ModalResultName(int32_t result) {
    constexpr const char* kResults[] = {"saved", "cancelled", "discarded"};
    const auto index = static_cast<size_t>(result) - 1;
    return index < std::size(kResults) ? Json(kResults[index]) : Json(result);
}

}  // namespace hxctl
