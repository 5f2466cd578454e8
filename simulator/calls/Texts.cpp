#include "simulator/calls/Texts.h"

#include <algorithm>

#include "hxapi/HXApiErrors.h"
#include "hxapi/ICalibrationHandle.h"

namespace hx::simulator {
namespace {

struct Row {
    HRESULT result;
    std::wstring_view code;
    std::wstring_view text;
};

constexpr Row kTexts[] = {
    {HX_E_NOTCONNECTED, {}, L"The scanner is not connected."},
    {HX_E_NOTACQUIRED, {}, L"The scanner is not held by this calibration handle."},
    {HX_E_NOTFOUND, {}, L"There is no such device or preset."},
    {E_INVALIDARG, {}, L"The scanner does not have these values."},
    {E_POINTER, {}, L"There is no place for the result."},
    {E_ACCESSDENIED, {}, L"Access was denied."},
    {E_OUTOFMEMORY, {}, L"There is not enough memory."},
    {S_OK, kHXPresetsCustomRestored,
     L"No presets were found for this scanner model. The standard presets were installed, and your own were "
     L"restored from the backup."},
    {S_OK, kHXPresetsCustomGenerated,
     L"No presets were found for this scanner model. The standard presets were installed, and a new preset "
     L"of "
     L"your own was made."},
    {S_OK, kHXPresetsUnknownVersion,
     L"A preset of an unknown version was found. It was left out, and the presets were backed up as they "
     L"were."},
};

}  // namespace

std::wstring_view TextOfResult(HRESULT result) {
    const auto* const row = std::ranges::find_if(
        kTexts, [&](const Row& each) { return each.code.empty() && each.result == result; });
    return row != std::end(kTexts) ? row->text : L"The scanner failed.";
}

std::wstring_view TextOfCode(std::wstring_view code) {
    const auto* const row = std::ranges::find_if(
        kTexts, [&](const Row& each) { return !each.code.empty() && each.code == code; });
    return row != std::end(kTexts) ? row->text : std::wstring_view();
}

}  // namespace hx::simulator
