// The table of models.
#include <algorithm>

#include "platform/system/case_fold.h"
#include "simulator/models/FactoryPresets.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {
namespace {

constexpr uint32_t kThreeGains[] = {1, 2, 4};
constexpr uint32_t kHighIsoGains[] = {1, 4};
constexpr uint32_t kTwoGains[] = {1, 2};

constexpr wchar_t kDriver[] = L"HXScanner";
constexpr wchar_t kDriverDisplay[] = L"HX Scanner";
constexpr wchar_t kHandheldDriver[] = L"HXHandheldScanner";
constexpr wchar_t kHandheldDriverDisplay[] = L"HX Handheld Scanner";

constexpr ScannerModel kModels[] = {
    {L"HX", kDriver, kDriverDisplay, L"HX", L"HX (S/N HX-1042)", L"HX-1042", 5000, 140, 1024, 768,
     kThreeGains, 3, true, false, nullptr, 3, kUsualPresets},
    {L"KT05FxR3PA", kDriver, kDriverDisplay, L"KT05FxR3PA", L"KT05 FxR3 PA (S/N 3PA-0217)", L"3PA-0217", 4000,
     150, 960, 720, kHighIsoGains, 0, false, false, nullptr, 1, kHighIsoPresets},
    {L"KT05FxR3PTB", kDriver, kDriverDisplay, L"KT05FxR3PTB", L"KT05 FxR3 PTB (S/N 3TB-0086)", L"3TB-0086",
     4000, 150, 960, 720, kHighIsoGains, -1, false, false, nullptr, 1, kHighIsoPresets},
    {L"KT05FxR3W", kDriver, kDriverDisplay, L"KT05FxR3W", L"KT05 FxR3 W (S/N 3W-0139)", L"3W-0139", 4000, 120,
     1280, 720, kHighIsoGains, 1, true, false, nullptr, 1, kHighIsoPresets},
    {L"T820", kDriver, kDriverDisplay, L"T820", L"T820 (S/N 820-0147)", L"820-0147", 2400, 140, 1024, 768,
     kTwoGains, 2, false, false, L"60deg", 2, kUsualPresets},
    {L"Handheld", kHandheldDriver, kHandheldDriverDisplay, L"HXHandheld", L"HX Handheld (S/N HH-0031)",
     L"HH-0031", 8000, 100, 1280, 960, kTwoGains, 3, false, true, nullptr, 2, kHandheldPresets},
};

}  // namespace

std::span<const ScannerModel> ScannerModels() {
    return kModels;
}

const ScannerModel* FindScannerModel(std::wstring_view name) {
    const auto* const found = std::ranges::find_if(
        kModels, [&](const ScannerModel& model) { return EqualsWithoutCase(name, model.name); });
    return found == std::end(kModels) ? nullptr : found;
}

}  // namespace hx::simulator
