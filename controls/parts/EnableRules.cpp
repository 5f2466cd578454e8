#include "controls/parts/EnableRules.h"

#include <algorithm>

namespace hx {

Disabled WhyDisabled(std::span<const Requirement> needs, const EnableState& state) {
    const auto missing =
        std::ranges::find_if(needs, [&](const Requirement& need) { return !(state.*need.holds); });
    return missing == needs.end() ? Disabled::kNot : missing->otherwise;
}

void EnableByRules(const ui::Dialog& dialog, std::span<const EnableRule> rules,
                   std::span<const Requirement> others_need, const EnableState& state) {
    for (ui::Control* const control : dialog.Controls()) {
        const auto rule = std::ranges::find_if(
            rules, [&](const EnableRule& each) { return each.control == control->Id(); });
        const Disabled why = WhyDisabled(rule != rules.end() ? rule->needs : others_need, state);
        control->Enable(why == Disabled::kNot);
        SetHelp(*control, *dialog.Module(), why);
    }
}

void DisableByNeed(const ui::Dialog& dialog, std::span<const EnableRule> rules, bool EnableState::*need) {
    for (const EnableRule& rule : rules) {
        const auto missing = std::ranges::find(rule.needs, need, &Requirement::holds);
        ui::Control* const control = missing != rule.needs.end() ? dialog.Find(rule.control) : nullptr;
        if (!control || !control->IsEnabled()) continue;
        control->Enable(false);
        SetHelp(*control, *dialog.Module(), missing->otherwise);
    }
}

}  // namespace hx
