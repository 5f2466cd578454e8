#include "controls/handheld/HandheldControls.h"

#include "controls/settings_page/SharedTables.h"

namespace hx {
namespace {

constexpr ValueRow kValues[] = {LaserPowerRow(true), ExposureRow(true)};

constexpr EnableRule kOwnEnableRules[] = {
    {kWidthSlider, kProfileAndScanner},
    {kHeightSlider, kProfileAndScanner},
    {kIndicatorBox, kProfileAndScanner},
};

// The scale goes along with the sliders; what is below these stays at the bottom.
constexpr ui::AnchorRule kOwnAnchors[] = {
    {kSettingsGroup, 0, 0, 0, 1},
    {kLaserPowerSlider, 0, 0, 0, 1},
    {kExposureSlider, 0, 0, 0, 1},
    {kFullScaleLabel, 0, 0, 0, 0},
    {kThreeQuartersScaleLabel, 0, 0.25, 0, 0.25},
    {kHalfScaleLabel, 0, 0.5, 0, 0.5},
    {kQuarterScaleLabel, 0, 0.75, 0, 0.75},
    {kLeastScaleLabel, 0, 0.99, 0, 0.99},
    {kLaserPowerEdit, 0, 1, 0, 1},
    {kAutomaticBox, 0, 1, 0, 1},
    {kExposureEdit, 0, 1, 0, 1},
    {kDetectButton, 0, 1, 0, 1},
    {kEdgeFilter3DBox, 0, 1, 0, 1},
    {kReflectionFilterBox, 0, 1, 0, 1},
    {kThresholdLabel, 0, 1, 0, 1},
    {kThresholdList, 0, 1, 0, 1},
    {kGainLabel, 0, 1, 0, 1},
    {kGainList, 0, 1, 0, 1},
    {kExposureRowsLabel, 0, 1, 0, 1},
    {kIndicatorBox, 0, 1, 0, 1},
};

constexpr auto kEnableRules = Joined(kSharedEnableRules, kOwnEnableRules);
constexpr auto kAnchors = Joined(kSharedAnchors, kOwnAnchors);

}  // namespace

constinit const std::span<const ValueRow> kHandheldValues = kValues;
constinit const std::span<const EnableRule> kHandheldEnableRules = kEnableRules;
constinit const std::span<const ui::AnchorRule> kHandheldAnchors = kAnchors;

}  // namespace hx
