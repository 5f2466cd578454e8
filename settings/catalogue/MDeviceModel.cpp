#include "settings/catalogue/MDeviceModel.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/catalogue/CatalogueRecords.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MDeviceModel", "MSupportedDevices"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MDeviceModel>;

constexpr Field kFields[] = {
    F::Value<&MDeviceModel::InternalName>(L"InternalName", L""),
    F::Fragment<&MDeviceModel::DeviceSettings>(L"DeviceSettings"),
    F::Record<&MDeviceModel::SupportedCapabilities>(L"SupportedCapabilities"),
};

constexpr Field kMembers[] = {
    MembersOf<MSupportedDevices, MDeviceModel>(L"DeviceModel"),
};

}  // namespace

constinit const RecordType MDeviceModel::kType = RecordTypeOf<MDeviceModel>(
    L"MDeviceModel", {RecordVersion::kUint, kStreamVersion}, kFields, "A device model that a driver offers.");

constinit const RecordType MSupportedDevices::kType =
    RecordTypeOf<MSupportedDevices>(L"MSupportedDevices", {RecordVersion::kUint, kStreamVersion}, kMembers,
                                    "The device models of a device type.");

bool MDeviceModel::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MDeviceModel", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadEntry(kType, this, InternalName, filer, location); });
}

bool MDeviceModel::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MSupportedDevices::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MSupportedDevices", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadCollection(*this, filer, kMembers[0].child, location); });
}

bool MSupportedDevices::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
