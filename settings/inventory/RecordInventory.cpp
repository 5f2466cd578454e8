#include "settings/inventory/RecordInventory.h"

#include <algorithm>
#include <iterator>

#include "core/filer/TaggedXml.h"
#include "settings/catalogue/MDeviceType.h"
#include "settings/connection/MHXConnectionSettings.h"
#include "settings/device/MScanningMeasurementFacetSettings.h"
#include "settings/inventory/PropertiesDocument.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/measurement/MTriggerSettings.h"
#include "settings/measurement/ZRDMeasurementSettings.h"
#include "settings/processing/MDualQuaternionInterpolatorSettings.h"
#include "settings/processing/MProcessingSettings.h"
#include "settings/processing/MSpoilerSettings.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx {
namespace {

using Properties = MPropertiesHelper;

constexpr InventoryRow kRows[] = {
    {&MHXConnectionSettings::kType, MHXConnectionSettings::kElement, kTaggedXmlRoot},
    {&MLaserProfileSettings::kType, L"LaserProfileSettings", kTaggedXmlRoot},
    {&MHXMeasurementSettings::kType, L"HXMeasurementSettings", kTaggedXmlRoot},
    {&ZRDMeasurementSettings::kType, L"ZRDMeasurementSettings", kTaggedXmlRoot},
    {&MTriggerSettings::kType, L"TriggerSettingsFromLocaliser", kTaggedXmlRoot},
    {&MScanningMeasurementFacetSettings::kType, MScanningMeasurementFacetSettings::kElement, kTaggedXmlRoot},
    {&MDeviceMeasurementSettings::kType, L"DeviceMeasurementSettings", kTaggedXmlRoot},
    {&StageSettingsLocation::kType, L"Stage2DSettings", kTaggedXmlRoot},
    {&MScanEngineProcessingSettings::kType, L"ScanEngineProcessingSettings", kTaggedXmlRoot},
    {&MDeviceSettingsList::kType, L"DeviceSettingsList", kTaggedXmlRoot},
    {&MDeviceType::kType, L"DeviceType", kTaggedXmlRoot},
    {&MSupportedDevices::kType, L"SupportedDevices", kTaggedXmlRoot},
    {&MDeviceModel::kType, L"DeviceModel", kTaggedXmlRoot},
    {&MSupportedConfigurationCapabilities::kType, L"SupportedCapabilities", kTaggedXmlRoot},
    {&MConfigurationCapability::kType, L"Capability", kTaggedXmlRoot},
    {&MSupportedConfigurations::kType, L"SupportedConfigurations", kTaggedXmlRoot},
    {&MConfiguration::kType, L"Configuration", kTaggedXmlRoot},
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
