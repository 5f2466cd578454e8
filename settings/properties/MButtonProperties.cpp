#include "settings/properties/MButtonProperties.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MButtonProperties"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MButtonProperties>;

constexpr Field kFields[] = {
    F::Value<&MButtonProperties::ButtonID>(L"ButtonID", 0),
    F::Value<&MButtonProperties::ButtonDisplayName>(L"ButtonDisplayName", L""),
    F::Value<&MButtonProperties::ButtonColour>(L"ButtonColour", L""),
};

}  // namespace

constinit const RecordType MButtonProperties::kType = RecordTypeOf<MButtonProperties>(
    L"MButtonProperties", {RecordVersion::kNone, 0}, kFields, "A hardware button of a device.");

MButtonProperties::MButtonProperties() {
    SetDefaults(*this);
}

bool MButtonProperties::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                   const MButtonProperties& defaults) {
    return ReadElement(kType, this, &defaults, filer, element);
}

bool MButtonProperties::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
