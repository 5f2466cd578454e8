// When the controls of a settings page can be used, and what their help says if not: a page has a table of
// rules, and those controls that are not in it need what all of them need.
#pragma once

#include <span>

#include "controls/widgets/ControlHelp.h"

namespace hx {

// What the controls depend on.
struct EnableState {
    bool is_set_up = false;         // there was a scanner, and the page has a device
    bool is_readable = false;       // its profile is shown
    bool is_connected = false;      // the configured scanner
    bool is_power_by_hand = false;  // the scanner does not control the laser power
    bool filters_3d = false;        // the 3D filter is on
    bool is_speed_selectable = false;
};

struct Requirement {
    bool EnableState::*holds;
    Disabled otherwise;
};

struct EnableRule {
    uint32_t control;
    std::span<const Requirement> needs;
};

// The first of the rule's requirements that does not hold.
Disabled WhyDisabled(std::span<const Requirement> needs, const EnableState& state);
// Every control of the dialog is enabled or not, and has its help.
void EnableByRules(const ui::Dialog& dialog, std::span<const EnableRule> rules,
                   std::span<const Requirement> others_need, const EnableState& state);

// Those that can be used, and need that, cannot any more; the others keep their help.
void DisableByNeed(const ui::Dialog& dialog, std::span<const EnableRule> rules, bool EnableState::*need);

}  // namespace hx
