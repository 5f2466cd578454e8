// What the tables of all settings pages have alike: the rows of the laser power and of the exposure, what
// their controls need to be usable, and how those of profiles and of the field of view follow the dialog's
// size. For the tables of the pages.
#pragma once

#include <algorithm>
#include <array>

#include "controls/editor/ProfileEditor.h"
#include "controls/parts/EnableRules.h"
#include "controls/parts/PageControls.h"
#include "controls/parts/ValueRow.h"
#include "platform/ui/anchors.h"

namespace hx {

constexpr ValueRow LaserPowerRow(bool is_vertical) {
    using Data = DynamicSettingsData;
    return {kLaserPowerSlider,
            kLaserPowerEdit,
            kLeastLaserPower,
            kMostLaserPower,
            10,
            1,
            is_vertical,
            1,
            false,
            GetMember<&Data::laser_power>,
            SetMember<&Data::laser_power>};
}

// The edit shows whole percents of the hundredths that the record has.
constexpr ValueRow ExposureRow(bool is_vertical) {
    using Data = DynamicSettingsData;
    return {kExposureSlider,
            kExposureEdit,
            kLeastExposure,
            kMostExposure,
            1000,
            100,
            is_vertical,
            100,
            true,
            GetMember<&Data::exposure>,
            SetMember<&Data::exposure>};
}

inline constexpr Requirement kSetUp = {&EnableState::is_set_up, Disabled::kNotSetUp};
inline constexpr Requirement kReadable = {&EnableState::is_readable, Disabled::kNotReadable};
inline constexpr Requirement kConnected = {&EnableState::is_connected, Disabled::kNotConnected};

// What the controls need that are in no rule.
inline constexpr Requirement kProfile[] = {kSetUp, kReadable};
inline constexpr Requirement kProfileAndPowerByHand[] = {
    kSetUp, kReadable, {&EnableState::is_power_by_hand, Disabled::kAutomaticPower}};
inline constexpr Requirement kProfileAndScanner[] = {kSetUp, kReadable, kConnected};

// The list of profiles is always there to be chosen from.
inline constexpr std::array<EnableRule, 4> kSharedEnableRules = {{
    {ProfileEditor::kProfileList, {}},
    {kLaserPowerSlider, kProfileAndPowerByHand},
    {kLaserPowerEdit, kProfileAndPowerByHand},
    {kDetectButton, kProfileAndScanner},
}};

inline constexpr std::array<ui::AnchorRule, 11> kSharedAnchors = {{
    {kProfilesGroup, 0, 0, 0, 1},
    {ProfileEditor::kProfileList, 0, 0, 0, 1},
    {kFieldOfViewGroup, 0, 0, 1, 1},
    {kPreviewControl, 0, 0, 1, 1},
    {kWidthFullLabel, 0, 1, 0, 1},
    {kFrameRateLabel, 0, 1, 0, 1},
    {kWidthSlider, 0, 1, 1, 1},
    {kWidthHalfLabel, 1, 1, 1, 1},
    {kHeightHalfLabel, 1, 1, 1, 1},
    {kHeightSlider, 1, 0, 1, 1},
    {kHeightFullLabel, 1, 0, 1, 0},
}};

// The shared rows with those that a page has of its own.
template <class Row, size_t kShared, size_t kOwn>
constexpr std::array<Row, kShared + kOwn> Joined(const std::array<Row, kShared>& shared,
                                                 const Row (&own)[kOwn]) {
    std::array<Row, kShared + kOwn> all{};
    std::copy(shared.begin(), shared.end(), all.begin());
    std::copy(std::begin(own), std::end(own), all.begin() + kShared);
    return all;
}

}  // namespace hx
