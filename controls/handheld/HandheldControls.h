// The controls of the handheld page's dialog: their numbers, and the tables of what the page knows about
// them. Used by the page and its parts alone.
#pragma once

#include <span>

#include "controls/parts/EnableRules.h"
#include "controls/parts/ValueRow.h"
#include "platform/ui/anchors.h"

namespace hx {

enum HandheldControl : uint32_t {
    kFullScaleLabel = 108,
    kThreeQuartersScaleLabel = 109,
    kHalfScaleLabel = 110,
    kQuarterScaleLabel = 111,
    kLeastScaleLabel = 112,
    kIndicatorBox = 275,
    kThresholdList = 282,
    kThresholdLabel = 283,
};

extern const std::span<const ValueRow> kHandheldValues;
extern const std::span<const EnableRule> kHandheldEnableRules;
extern const std::span<const ui::AnchorRule> kHandheldAnchors;

}  // namespace hx
