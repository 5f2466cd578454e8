// In what a settings page differs from the other: what it shows, where its errors are raised, and the rules
// of its session. Each page has one such row, which its ScannerSettingsDlg walks.
#pragma once

#include <span>

#include "controls/parts/EnableRules.h"
#include "controls/parts/ValueRow.h"
#include "controls/session/SessionRules.h"
#include "platform/ui/anchors.h"

namespace hx {

// Where the operations of a page, and of its parts, raise their errors.
struct PageLocations {
    explicit PageLocations(const char* page_class);

    MErrorLocation initialise;
    MErrorLocation report_selected;
    MErrorLocation settings_to_data;
    MErrorLocation gains;
    MErrorLocation readouts;
    MErrorLocation detection;
};

struct SettingsPageKind {
    PageLocations& (*locations)();
    const SessionRules& session;
    std::span<const ValueRow> values;
    std::span<const EnableRule> enable_rules;  // all other controls need kProfile
    std::span<const ui::AnchorRule> anchors;
};

}  // namespace hx
