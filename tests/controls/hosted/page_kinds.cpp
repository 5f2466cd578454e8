#include "tests/controls/hosted/page_kinds.h"

#include <dlfcn.h>

#include <cmath>
#include <limits>

#include "hxapi/HXScannerCtrlsClasses.h"

namespace hosted {
namespace {

using enum EnableRow::Needs;

constexpr double kNotShown = std::numeric_limits<double>::quiet_NaN();
constexpr size_t kThreshold = 2;
// Of the list of thresholds: rows, and the threshold of the row that would come before the first.
constexpr int32_t kThresholdRows = 5;

constexpr EnableRow kMeasRules[] = {
    {207, kPowerByHand},
    {210, kPowerByHand},
    {204},
    {206},
    {211},
    {212},
    {218, k3DFilter},
    {219, k3DFilter},
    {214},
    {217},
    {224},
    {225},
    {253},
};
constexpr uint32_t kMeasSliders[] = {276, 277, 289};
constexpr uint32_t kMeasBoxes[] = {288};

constexpr EnableRow kHandheldRules[] = {
    {207, kPowerByHand}, {210, kPowerByHand}, {204}, {206}, {282}, {224}, {225}, {253},
};
constexpr uint32_t kHandheldSliders[] = {276, 277};
constexpr uint32_t kHandheldBoxes[] = {275};

// But for the mount rotation, which most scanners do not have.
constexpr uint32_t kReadings[] = {235, 236, 231, 234, 242, 244};

constexpr PageKind kKinds[] = {
    {"measurement",
     kProgIdHXMeasSettingsCtrl,
     {{{207, 210}, {204, 206, 0, 100}, {211, 212}, {218, 219}, {214, 217}}},
     kMeasRules,
     0,
     kMeasSliders,
     kMeasBoxes},
    {"handheld",
     kProgIdHXHandheldMeasSettingsCtrl,
     {{{207, 210, 101}, {204, 206, 10100, 100}}},
     kHandheldRules,
     282,
     kHandheldSliders,
     kHandheldBoxes},
    {.name = "diagnostics", .prog_id = kProgIdHXDiagnosticsCtrl, .readings = kReadings},
};

}  // namespace

std::span<const PageKind> PageKinds() {
    return kKinds;
}

Values PageKind::Shown(const hx::ui::Dialog& page) const {
    Values values;
    for (size_t i = 0; i < numbers.size(); ++i) {
        values.numbers[i] = kNotShown;
        if (numbers[i].slider == 0) continue;
        const int32_t position = page.FindAs<hx::ui::TrackBar>(numbers[i].slider)->Position();
        values.numbers[i] = numbers[i].upright != 0 ? numbers[i].upright - position : position;
    }
    if (threshold_list != 0) {
        const int32_t row = page.FindAs<hx::ui::ComboBox>(threshold_list)->Selected();
        if (row >= 0) values.numbers[kThreshold] = kThresholdRows - row;
    }
    for (size_t i = 0; i < std::size(kBoxes); ++i) {
        values.flags[i] = page.FindAs<hx::ui::CheckBox>(kBoxes[i])->IsChecked();
    }
    const auto* const gains = page.FindAs<hx::ui::ComboBox>(kGainList);
    // The one row of a scanner that does not tell its gains says nothing.
    if (gains->Items().size() >= 2 && gains->Selected() >= 0) {
        values.gain =
            static_cast<uint32_t>(std::stoul(gains->Items()[static_cast<size_t>(gains->Selected())]));
    }
    return values;
}

Values PageKind::Seen(const Values& stored) const {
    Values seen = stored;
    for (size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i].slider == 0) seen.numbers[i] = kNotShown;
    }
    if (threshold_list != 0) {
        const double row = std::fabs(stored.numbers[kThreshold] - kThresholdRows);
        if (row < kThresholdRows) seen.numbers[kThreshold] = kThresholdRows - row;
    }
    return seen;
}

bool OpenPage(hosting::HostedPage& page, const PageKind& kind, const Frame& frame, const Scanner& scanner,
              const std::wstring& profile) {
    constexpr LCID kEnglish = 0x0409;
    if (!page.Create(kind.prog_id).IsDone() || !page.SetApi(scanner.api.get()).IsDone()) return false;
    const bool edits =
        page.Initialise(scanner.driver, scanner.device, L"", hosting::HostedPage::ArgumentsOf(profile))
            .IsDone();
    return edits == kind.EditsProfiles() && page.Select().IsDone() &&
           page.Open(frame, {0, 0, 1000, 700}, kEnglish).IsDone();
}

bool IsNothingLeft() {
    using CanUnloadNow = HRESULT (*)();
    void* const library = dlopen(HX_BIN_DIR "/HXScannerCtrls.so", RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) return true;
    const auto can = reinterpret_cast<CanUnloadNow>(dlsym(library, "DllCanUnloadNow"));
    const bool left = can() != S_OK;
    dlclose(library);
    return !left;
}

}  // namespace hosted
