#include "settings/processing/MFilterSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MFilterSettings"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MFilterSettings>;

constexpr Field kFields[] = {
    F::Record<&MFilterSettings::Speckle3DSettings>(L"Speckle3DSettings"),
};

}  // namespace

constinit const RecordType MFilterSettings::kType = RecordTypeOf<MFilterSettings>(
    L"MFilterSettings", {RecordVersion::kInt, 1}, kFields, "The filters of the measured points.");

void MFilterSettings::SetStrict(bool strict) {
    Speckle3DSettings.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

bool MFilterSettings::ReadImpTagged(MFilerTaggedPair& filer, const MFilterSettings& defaults) {
    m_reference.Set(defaults);
    return ProcessingRecord::ReadImpTagged(filer, defaults);
}

}  // namespace hx
