#include "settings/inventory/RecordInventory.h"

#include <algorithm>
#include <iterator>

#include "core/filer/TaggedXml.h"
#include "settings/connection/MHXConnectionSettings.h"
#include "settings/inventory/PropertiesDocument.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

using Properties = MPropertiesHelper;

constexpr InventoryRow kRows[] = {
    {&MHXConnectionSettings::kType, MHXConnectionSettings::kElement, kTaggedXmlRoot},
    {&MLaserProfileSettings::kType, L"LaserProfileSettings", kTaggedXmlRoot},
    {&MHXMeasurementSettings::kType, L"HXMeasurementSettings", kTaggedXmlRoot},
    {&PropertiesDocument::kType, {}, Properties::kRoot},
    {&MCommonDriverProperties::kType, Properties::kDriver, Properties::kRoot},
    {&MCommonDeviceProperties::kType, Properties::kDevice, Properties::kRoot, Properties::kDeviceList},
    {&MCommonScannerDeviceProperties::kType, Properties::kDevice, Properties::kRoot, Properties::kDeviceList},
    {&MHXFamilyDeviceProperties::kType, Properties::kDevice, Properties::kRoot, Properties::kDeviceList},
    {&MButtonProperties::kType, L"Button", kTaggedXmlRoot},
    {&MScanner3DModelTransforms::kType, L"Scanner3DModelTransforms", kTaggedXmlRoot},
    {&MLaserPlanes::kType, L"Planes", kTaggedXmlRoot},
    {&MLaserPlane::kType, L"Plane", kTaggedXmlRoot},
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
