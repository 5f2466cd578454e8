#include "settings/device/MScanningMeasurementFacetSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MScanningMeasurementFacetSettings"};
const StreamedClasses kClasses(kNames);

using Facet = MScanningMeasurementFacetSettings;
using F = FieldsOf<Facet>;

constexpr Field kFields[] = {
    F::Record<&Facet::DeviceMeasurementSettings>(L"DeviceMeasurementSettings")
        .In(VersionSet::Only(Facet::kDeviceVersion)),
    F::Record<&Facet::DeviceSettingsList>(L"DeviceSettingsList")
        .In(VersionSet::Except(Facet::kDeviceVersion)),
};

}  // namespace

constinit const RecordType MScanningMeasurementFacetSettings::kType =
    RecordTypeOf<Facet>(L"MScanningMeasurementFacetSettings", {RecordVersion::kInt, 2}, kFields,
                        "The scanning measurement settings of a scanner: its own, or a device catalogue.");

bool MScanningMeasurementFacetSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                                   const MScanningMeasurementFacetSettings& defaults) {
    return InGroup(filer, element, [&] {
        const bool has_version = ReadVersion(filer, Version, kDeviceVersion);
        return ReadFields(*this, defaults, filer, Version, ReadRule::kAll) && has_version;
    });
}

bool MScanningMeasurementFacetSettings::WriteTagged(MFilerTaggedPair& filer,
                                                    std::wstring_view element) const {
    return InGroup(filer, element, [&] {
        return WriteVersion(filer, kType.version) && WriteFields(kFields, this, filer, Version);
    });
}

}  // namespace hx
