#include "settings/inventory/RecordInventory.h"

#include <algorithm>
#include <iterator>

#include "core/filer/TaggedXml.h"
#include "settings/connection/MHXConnectionSettings.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/processing/MDualQuaternionInterpolatorSettings.h"
#include "settings/processing/MProcessingSettings.h"
#include "settings/processing/MSpoilerSettings.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

constexpr InventoryRow kRows[] = {
    {&MHXConnectionSettings::kType, MHXConnectionSettings::kElement, kTaggedXmlRoot},
    {&MLaserProfileSettings::kType, L"LaserProfileSettings", kTaggedXmlRoot},
    {&MHXMeasurementSettings::kType, L"HXMeasurementSettings", kTaggedXmlRoot},
    {&MProcessingSettings::kType, L"ProcessingSettings", kTaggedXmlRoot},
    {&MInterpolatorSettings::kType, L"InterpolatorSettings", kTaggedXmlRoot},
    {&MColumnInterpolatorSettings::kType, L"MaxIntensitySettings", kTaggedXmlRoot},
    {&MColumnInterpolatorMaxIntensitySettings::kType, L"MaxIntensitySettings", kTaggedXmlRoot},
    {&MColumnInterpolatorWeighedAverageSettings::kType, L"MaxIntensitySettings", kTaggedXmlRoot},
    {&MImageInterpolatorSettings::kType, L"ImageInterpolatorSettings", kTaggedXmlRoot},
    {&MSpeckleSettings::kType, L"SpeckleSettings", kTaggedXmlRoot},
    {&MMultiplePeakDetectionSettings::kType, L"MultiplePeakDetectionSettings", kTaggedXmlRoot},
    {&MReflectionFilterSettings::kType, L"ReflectionFilterSettings", kTaggedXmlRoot},
    {&MFilterSettings::kType, L"FilterSettings", kTaggedXmlRoot},
    {&MSpeckle3DSettings::kType, L"Speckle3DSettings", kTaggedXmlRoot},
    {&MSpoilerSettings::kType, L"SpoilerFilterSettings", kTaggedXmlRoot},
    {&MDualQuaternionInterpolatorSettings::kType, L"DualQuaternionInterpolatorSettings", kTaggedXmlRoot},
};

}  // namespace

std::span<const InventoryRow> RecordInventory() {
    return kRows;
}

const InventoryRow* FindRecordClass(std::wstring_view name) {
    const auto* const row =
        std::ranges::find(kRows, name, [](const InventoryRow& each) { return each.type->name; });
    return row == std::end(kRows) ? nullptr : row;
}

}  // namespace hx
