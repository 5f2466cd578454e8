#include "settings/catalogue/MConfiguration.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/catalogue/CatalogueRecords.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MConfiguration", "MSupportedConfigurations"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MConfiguration>;

constexpr Field kFields[] = {
    F::Value<&MConfiguration::InternalName>(L"InternalName", L""),
    F::Fragment<&MConfiguration::DeviceSettings>(L"DeviceSettings"),
};

constexpr Field kMembers[] = {
    MembersOf<MSupportedConfigurations, MConfiguration>(L"Configuration"),
};

}  // namespace

constinit const RecordType MConfiguration::kType = RecordTypeOf<MConfiguration>(
    L"MConfiguration", {RecordVersion::kUint, 1}, kFields, "A configuration of a capability.");

constinit const RecordType MSupportedConfigurations::kType = RecordTypeOf<MSupportedConfigurations>(
    L"MSupportedConfigurations", {RecordVersion::kUint, 1}, kMembers, "The configurations of a capability.");

bool MConfiguration::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MConfiguration", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadEntry(kType, this, InternalName, filer, location); });
}

bool MConfiguration::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MSupportedConfigurations::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MSupportedConfigurations", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadCollection(*this, filer, kMembers[0].child, location); });
}

bool MSupportedConfigurations::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
