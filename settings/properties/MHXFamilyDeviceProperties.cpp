#include "settings/properties/MHXFamilyDeviceProperties.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MHXFamilyDeviceProperties"};
const StreamedClasses kClasses(kNames);

using HX = MHXFamilyDeviceProperties;
using F = FieldsOf<HX>;

constexpr Field kFields[] = {
    F::Element<HX::kCommon, MCommonDeviceProperties>(L"CommonDeviceProperties"),
    F::Element<HX::kCommonScanner, MCommonScannerDeviceProperties>(L"CommonScannerDeviceProperties"),
    F::Value<&HX::ScannerSerialNumber>(L"ScannerSerialNumber", L""),
    F::Value<&HX::ScannerHardwareVersion>(L"ScannerHardwareVersion", L""),
    F::Record<&HX::ScannerManufacturingDate>(L"ScannerManufacturingDate"),
    F::Value<&HX::FpgaSerialNumber>(L"FpgaSerialNumber", L""),
    F::Value<&HX::FirmwareFpgaVersion>(L"FirmwareFpgaVersion", L""),
    F::Record<&HX::FirmwareFpgaBuildDate>(L"FirmwareFpgaBuildDate"),
    F::Value<&HX::FirmwareDriverVersion>(L"FirmwareDriverVersion", L""),
    F::Record<&HX::FirmwareDriverBuildDate>(L"FirmwareDriverBuildDate"),
    F::Value<&HX::FirmwareServerVersion>(L"FirmwareServerVersion", L""),
    F::Record<&HX::FirmwareServerBuildDate>(L"FirmwareServerBuildDate"),
    F::Record<&HX::CalibrationDate>(L"CalibrationDate"),
};
// The version stands behind the elements of the base, in front of what it is the version of.
constexpr std::span<const Field> kBaseFields(kFields, 2);
constexpr std::span<const Field> kOwnFields = std::span<const Field>(kFields).subspan(2);
constexpr int32_t kVersion = 1;

}  // namespace

constinit const RecordType MHXFamilyDeviceProperties::kType = RecordTypeOf<MHXFamilyDeviceProperties>(
    L"MHXFamilyDeviceProperties", {RecordVersion::kInt, kVersion}, kFields,
    "A scanner of the HX family; its \"Version\" stands behind the elements that all scanners have.");

MHXFamilyDeviceProperties::MHXFamilyDeviceProperties() {
    SetDefaults(*this);
}

bool MHXFamilyDeviceProperties::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                           const MCommonDeviceProperties& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MHXFamilyDeviceProperties::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] { return WriteImpTagged(filer); });
}

bool MHXFamilyDeviceProperties::ReadImpTagged(MFilerTaggedPair& filer,
                                              const MCommonDeviceProperties& defaults) {
    if (!MCommonScannerDeviceProperties::ReadImpTagged(filer, defaults)) return false;
    int32_t version = 0;
    ReadVersion(filer, version, 0);
    return version == kVersion &&
           ReadFields(kOwnFields, this, &DefaultsAs<MHXFamilyDeviceProperties>(defaults), filer, version,
                      ReadRule::kAll);
}

bool MHXFamilyDeviceProperties::WriteImpTagged(MFilerTaggedPair& filer) const {
    return WriteFields(kBaseFields, this, filer, kVersion) && WriteVersion(filer, kType.version) &&
           WriteFields(kOwnFields, this, filer, kVersion);
}

}  // namespace hx
