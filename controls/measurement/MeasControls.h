// The controls of the measurement page's dialog: their numbers, and the tables of what the page knows about
// them. Used by the page alone.
#pragma once

#include <span>

#include "controls/parts/EnableRules.h"
#include "controls/parts/ValueRow.h"
#include "platform/ui/anchors.h"

namespace hx {

enum MeasControl : uint32_t {
    kThresholdSlider = 211,
    kThresholdEdit = 212,
    kEdgeFilterSlider = 214,
    kEdgeFilterEdit = 217,
    kInclinationSlider = 218,
    kInclinationEdit = 219,
    kSpeedLabel = 229,
    kProcessingGroup = 261,
    kSpeedSlider = 289,
    kFullSpeedLabel = 290,
    kThreeQuartersSpeedLabel = 291,
    kHalfSpeedLabel = 292,
    kQuarterSpeedLabel = 293,
};

extern const std::span<const ValueRow> kMeasValues;
extern const std::span<const EnableRule> kMeasEnableRules;
extern const std::span<const ui::AnchorRule> kMeasAnchors;

}  // namespace hx
