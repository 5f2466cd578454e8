// The pages of the hardware dialog as tests see them from outside: which control is for what, and what it
// shows of a profile. One row each; whoever walks the table tests all of them.
#pragma once

#include <span>

#include "apps/hosting/HostedPage.h"
#include "tests/controls/hosted/hosted_scanner.h"

namespace hosted {

inline constexpr uint32_t kList = 6000;
inline constexpr uint32_t kExposureSlider = 204;  // enabled whenever a profile is shown
inline constexpr uint32_t kExposureEdit = 206;
inline constexpr uint32_t kBoxes[] = {224, 225, 253};  // of the flags
inline constexpr uint32_t kGainList = 286;
inline constexpr uint32_t kDetectButton = 269;

// Of one number of a profile.
struct NumberControls {
    uint32_t slider = 0;  // 0 for a page without one
    uint32_t edit = 0;
    int32_t upright = 0;   // of a slider with the highest value at its top: what position and value come to
    int32_t per_edit = 1;  // the slider's units in one of the edit
};

// When a control is enabled, beside that a profile is shown.
struct EnableRow {
    enum class Needs { kNothing, kPowerByHand, k3DFilter };
    uint32_t control;
    Needs needs = Needs::kNothing;
};

struct PageKind {
    const char* name;
    const wchar_t* prog_id;
    std::array<NumberControls, 5> numbers{};  // in the order of Values::numbers
    std::span<const EnableRow> rules{};
    uint32_t threshold_list = 0;  // 0 for none
    std::span<const uint32_t> other_sliders{};
    std::span<const uint32_t> other_boxes{};
    std::span<const uint32_t> readings{};  // of what the scanner tells of itself

    bool EditsProfiles() const { return !rules.empty(); }
    Values Shown(const hx::ui::Dialog& page) const;
    // What the page would show of that.
    Values Seen(const Values& stored) const;
};

std::span<const PageKind> PageKinds();

// A page that the host has shown in the usual order, with a profile to select. False if something failed.
bool OpenPage(hosting::HostedPage& page, const PageKind& kind, const Frame& frame, const Scanner& scanner,
              const std::wstring& profile);

// Whether the pages' library has nothing in use: no page, nor anything that one has given away.
bool IsNothingLeft();

}  // namespace hosted
