#include "controls/measurement/MeasControls.h"

#include "controls/editor/ProfileEditor.h"

namespace hx {
namespace {

using Data = DynamicSettingsData;
using State = EnableState;

// The edit of the exposure shows whole percents of the hundredths that the record has.
constexpr ValueRow kValues[] = {
    {kLaserPowerSlider, kLaserPowerEdit, 1, 100, 10, 1, false, 1, false, GetMember<&Data::laser_power>,
     SetMember<&Data::laser_power>},
    {kExposureSlider, kExposureEdit, 100, 10000, 1000, 100, false, 100, true, GetMember<&Data::exposure>,
     SetMember<&Data::exposure>},
    {kThresholdSlider, kThresholdEdit, 0, 100, 10, 1, false, 1, false, GetMember<&Data::signal_threshold>,
     SetMember<&Data::signal_threshold>},
    {kInclinationSlider, kInclinationEdit, 0, 90, 10, 1, false, 1, false, GetMember<&Data::max_inclination>,
     SetMember<&Data::max_inclination>},
    {kEdgeFilterSlider, kEdgeFilterEdit, 0, 100, 10, 1, false, 1, false, GetMember<&Data::edge_filter>,
     SetMember<&Data::edge_filter>},
};

constexpr Requirement kSetUp = {&State::is_set_up, Disabled::kNotSetUp};
constexpr Requirement kReadable = {&State::is_readable, Disabled::kNotReadable};
constexpr Requirement kConnected = {&State::is_connected, Disabled::kNotConnected};

constexpr Requirement kProfile[] = {kSetUp, kReadable};
constexpr Requirement kProfileAndPowerByHand[] = {
    kSetUp, kReadable, {&State::is_power_by_hand, Disabled::kAutomaticPower}};
constexpr Requirement kProfileAnd3DFilter[] = {
    kSetUp, kReadable, {&State::filters_3d, Disabled::kNo3DFilter}};
constexpr Requirement kProfileAndScanner[] = {kSetUp, kReadable, kConnected};
constexpr Requirement kScannerWithSpeeds[] = {kConnected,
                                              {&State::is_speed_selectable, Disabled::kSpeedNotSelectable}};

// The list of profiles is always there to be chosen from.
constexpr EnableRule kEnableRules[] = {
    {ProfileEditor::kProfileList, {}},         {kLaserPowerSlider, kProfileAndPowerByHand},
    {kLaserPowerEdit, kProfileAndPowerByHand}, {kDetectButton, kProfileAndScanner},
    {kInclinationSlider, kProfileAnd3DFilter}, {kInclinationEdit, kProfileAnd3DFilter},
    {kSpeedSlider, kScannerWithSpeeds},
};

constexpr ui::AnchorRule kAnchors[] = {
    {kProfilesGroup, 0, 0, 0, 1},
    {ProfileEditor::kProfileList, 0, 0, 0, 1},
    {kProcessingGroup, 0, 0, 0, 1},
    {kFieldOfViewGroup, 0, 0, 1, 1},
    {kPreviewControl, 0, 0, 1, 1},
    {kWidthFullLabel, 0, 1, 0, 1},
    {kFrameRateLabel, 0, 1, 0, 1},
    {kWidthSlider, 0, 1, 1, 1},
    {kWidthHalfLabel, 1, 1, 1, 1},
    {kHeightHalfLabel, 1, 1, 1, 1},
    {kHeightSlider, 1, 0, 1, 1},
    {kHeightFullLabel, 1, 0, 1, 0},
    {kSpeedSlider, 0, 1, 1, 1},
    {kSpeedLabel, 0, 1, 1, 1},
    {kQuarterSpeedLabel, 0, 1, 0, 1},
    {kHalfSpeedLabel, 0.33, 1, 0.33, 1},
    {kThreeQuartersSpeedLabel, 0.66, 1, 0.66, 1},
    {kFullSpeedLabel, 1, 1, 1, 1},
};

}  // namespace

constinit const std::span<const ValueRow> kMeasValues = kValues;
constinit const std::span<const EnableRule> kMeasEnableRules = kEnableRules;
constinit const std::span<const Requirement> kMeasOthersNeed = kProfile;
constinit const std::span<const ui::AnchorRule> kMeasAnchors = kAnchors;

}  // namespace hx
