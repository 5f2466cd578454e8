#include "simulator/models/ModelDetails.h"

#include <algorithm>
#include <string_view>

namespace hx::simulator {
namespace {

constexpr ModelDetails kDetails[] = {
    {L"HX",
     {-50, 60, 40, 62.5},
     24,
     0.025,
     0.0065,
     L"3.0",
     L"F-04417",
     L"2.3",
     {2024, 3, 12},
     {2024, 6, 4},
     {2025, 1, 20}},
    {L"KT05FxR3PA",
     {-35, 35, 26, 38},
     0,
     0.015,
     0.004,
     L"1.4",
     L"F-02286",
     L"1.9",
     {2022, 9, 7},
     {2023, 2, 16},
     {2024, 10, 1}},
    {L"KT05FxR3PTB",
     {-35, 35, 26, 38},
     0,
     0.015,
     0.004,
     L"1.5",
     L"F-02751",
     L"1.9",
     {2023, 1, 24},
     {2023, 2, 16},
     {2024, 10, 8}},
    {L"KT05FxR3W",
     {-60, 60, 55, 80},
     0,
     0.03,
     0.008,
     L"1.4",
     L"F-03120",
     L"1.9",
     {2023, 5, 30},
     {2023, 2, 16},
     {2024, 11, 27}},
    {L"T820",
     {-50, 60, 40, 62.5},
     30,
     0.025,
     0.007,
     L"2.1",
     L"F-00931",
     L"1.14",
     {2023, 4, 18},
     {2023, 2, 3},
     {2024, 11, 5}},
    {L"HXHandheld",
     {-90, 110, 60, 105},
     15,
     0.05,
     0.012,
     L"1.0",
     L"F-05008",
     L"3.1",
     {2025, 2, 11},
     {2025, 3, 19},
     {2025, 4, 2}},
};

}  // namespace

const ModelDetails& DetailsOf(const ScannerModel& model) {
    const std::wstring_view name = model.device_internal_name;
    // Every model has its row, which the tests check.
    return *std::ranges::find_if(kDetails,
                                 [&](const ModelDetails& row) { return name == row.device_internal_name; });
}

}  // namespace hx::simulator
