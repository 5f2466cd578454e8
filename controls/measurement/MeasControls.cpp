#include "controls/measurement/MeasControls.h"

#include "controls/settings_page/SharedTables.h"

namespace hx {
namespace {

using Data = DynamicSettingsData;
using State = EnableState;

constexpr ValueRow kValues[] = {
    LaserPowerRow(false),
    ExposureRow(false),
    {kThresholdSlider, kThresholdEdit, 0, 100, 10, 1, false, 1, false, GetMember<&Data::signal_threshold>,
     SetMember<&Data::signal_threshold>},
    {kInclinationSlider, kInclinationEdit, 0, 90, 10, 1, false, 1, false, GetMember<&Data::max_inclination>,
     SetMember<&Data::max_inclination>},
    {kEdgeFilterSlider, kEdgeFilterEdit, 0, 100, 10, 1, false, 1, false, GetMember<&Data::edge_filter>,
     SetMember<&Data::edge_filter>},
};

constexpr Requirement kProfileAnd3DFilter[] = {
    kSetUp, kReadable, {&State::filters_3d, Disabled::kNo3DFilter}};
constexpr Requirement kScannerWithSpeeds[] = {kConnected,
                                              {&State::is_speed_selectable, Disabled::kSpeedNotSelectable}};

constexpr EnableRule kOwnEnableRules[] = {
    {kInclinationSlider, kProfileAnd3DFilter},
    {kInclinationEdit, kProfileAnd3DFilter},
    {kSpeedSlider, kScannerWithSpeeds},
};

constexpr ui::AnchorRule kOwnAnchors[] = {
    {kProcessingGroup, 0, 0, 0, 1},      {kSpeedSlider, 0, 1, 1, 1},
    {kSpeedLabel, 0, 1, 1, 1},           {kQuarterSpeedLabel, 0, 1, 0, 1},
    {kHalfSpeedLabel, 0.33, 1, 0.33, 1}, {kThreeQuartersSpeedLabel, 0.66, 1, 0.66, 1},
    {kFullSpeedLabel, 1, 1, 1, 1},
};

constexpr auto kEnableRules = Joined(kSharedEnableRules, kOwnEnableRules);
constexpr auto kAnchors = Joined(kSharedAnchors, kOwnAnchors);

}  // namespace

constinit const std::span<const ValueRow> kMeasValues = kValues;
constinit const std::span<const EnableRule> kMeasEnableRules = kEnableRules;
constinit const std::span<const ui::AnchorRule> kMeasAnchors = kAnchors;

}  // namespace hx
