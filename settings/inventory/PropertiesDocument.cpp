#include "settings/inventory/PropertiesDocument.h"

#include "core/records/FieldsOf.h"

namespace hx {
namespace {

using F = FieldsOf<PropertiesDocument>;

constexpr Field kFields[] = {
    F::Record<&PropertiesDocument::Driver>(MPropertiesHelper::kDriver),
    F::Record<&PropertiesDocument::Device>(MPropertiesHelper::kDevice).Optional(),
};

}  // namespace

constinit const RecordType PropertiesDocument::kType = RecordTypeOf<PropertiesDocument>(
    L"MPropertiesHelper", {RecordVersion::kUint, MPropertiesHelper::kVersion}, kFields,
    "The properties document of a driver. The device lies in a \"DeviceList\", which may be absent.");

bool PropertiesDocument::ReadTagged(MFilerTaggedPair& filer, std::wstring_view,
                                    const PropertiesDocument& defaults) {
    *this = defaults;
    MPropertiesHelper(Driver, Device).Read(filer, false);
    return true;
}

bool PropertiesDocument::WriteTagged(MFilerTaggedPair& filer, std::wstring_view) const {
    return MPropertiesHelper::WriteDocument(filer, Driver, Device);
}

}  // namespace hx
