#include "settings/catalogue/MDeviceType.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/catalogue/CatalogueRecords.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MDeviceType", "MDeviceSettingsList"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MDeviceType>;

constexpr Field kFields[] = {
    F::Value<&MDeviceType::InternalName>(L"InternalName", L""),
    F::Fragment<&MDeviceType::DeviceSettings>(L"DeviceSettings"),
    F::Record<&MDeviceType::SupportedDevices>(L"SupportedDevices"),
};

constexpr Field kMembers[] = {
    MembersOf<MDeviceSettingsList, MDeviceType>(L"DeviceType"),
};

}  // namespace

constinit const RecordType MDeviceType::kType = RecordTypeOf<MDeviceType>(
    L"MDeviceType", {RecordVersion::kUint, kStreamVersion}, kFields, "A device type that a driver offers.");

constinit const RecordType MDeviceSettingsList::kType = RecordTypeOf<MDeviceSettingsList>(
    L"MDeviceSettingsList", {RecordVersion::kUint, kStreamVersion}, kMembers,
    "The device catalogue: the device types that a driver offers.");

bool MDeviceType::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MDeviceType", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadEntry(kType, this, InternalName, filer, location); });
}

bool MDeviceType::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MDeviceSettingsList::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MDeviceSettingsList", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadCollection(*this, filer, kMembers[0].child, location); });
}

bool MDeviceSettingsList::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
