#include "controls/widgets/ControlHelp.h"

#include <string_view>

namespace hx {
namespace {

// Empty if there is none.
std::wstring_view StringOf(const ResourceModule& module, uint32_t id) {
    const std::wstring* const string = module.String(id);
    return string ? std::wstring_view(*string) : std::wstring_view();
}

// Without making it: pages ask for all of their controls after every change, and few of them differ.
bool IsMadeOf(std::wstring_view whole, std::wstring_view help, std::wstring_view line_end,
              std::wstring_view reason) {
    return whole.size() == help.size() + line_end.size() + reason.size() && whole.starts_with(help) &&
           whole.ends_with(reason) && whole.substr(help.size(), line_end.size()) == line_end;
}

}  // namespace

void SetHelp(ui::Control& control, const ResourceModule& module, Disabled disabled) {
    constexpr uint32_t kFirstHelp = 3000;
    const bool has_help = control.Id() != kNoControlId;
    const std::wstring_view help =
        has_help ? StringOf(module, kFirstHelp + control.Id()) : std::wstring_view();
    const std::wstring_view reason =
        disabled == Disabled::kNot ? std::wstring_view() : StringOf(module, static_cast<uint32_t>(disabled));
    const std::wstring_view line_end = help.empty() || reason.empty() ? L"" : L"\n";
    if (IsMadeOf(control.ToolTip(), help, line_end, reason)) return;
    std::wstring tool_tip(help);
    tool_tip += line_end;
    tool_tip += reason;
    control.SetToolTip(std::move(tool_tip));
}

}  // namespace hx
