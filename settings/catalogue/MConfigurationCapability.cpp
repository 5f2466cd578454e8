#include "settings/catalogue/MConfigurationCapability.h"

#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/catalogue/CatalogueRecords.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MConfigurationCapability", "MSupportedConfigurationCapabilities"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MConfigurationCapability>;

constexpr Field kFields[] = {
    F::Value<&MConfigurationCapability::InternalName>(L"InternalName", L""),
    F::Record<&MConfigurationCapability::SupportedConfigurations>(L"SupportedConfigurations"),
};

constexpr Field kMembers[] = {
    MembersOf<MSupportedConfigurationCapabilities, MConfigurationCapability>(L"Capability"),
};
// Messages know it by a longer name than documents do.
constexpr std::wstring_view kCategory = L"ConfigurationCapability";

}  // namespace

constinit const RecordType MConfigurationCapability::kType = RecordTypeOf<MConfigurationCapability>(
    L"MConfigurationCapability", {RecordVersion::kUint, 1}, kFields, "What can be configured at a device.");

constinit const RecordType MSupportedConfigurationCapabilities::kType =
    RecordTypeOf<MSupportedConfigurationCapabilities>(L"MSupportedConfigurationCapabilities",
                                                      {RecordVersion::kUint, 1}, kMembers,
                                                      "What can be configured at a device model.");

bool MConfigurationCapability::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MConfigurationCapability", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadEntry(kType, this, InternalName, filer, location); });
}

bool MConfigurationCapability::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

bool MSupportedConfigurationCapabilities::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element) {
    static MErrorLocation location("MSupportedConfigurationCapabilities", "ReadImpTagged");
    return InGroup(filer, element, [&] { return ReadCollection(*this, filer, kCategory, location); });
}

bool MSupportedConfigurationCapabilities::WriteTagged(MFilerTaggedPair& filer,
                                                      std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
