#include "settings/processing/MProcessingSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MProcessingSettings"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MProcessingSettings>;

constexpr Field kFields[] = {
    F::Record<&MProcessingSettings::InterpolatorSettings>(L"InterpolatorSettings"),
    F::Record<&MProcessingSettings::FilterSettings>(L"FilterSettings"),
};

}  // namespace

constinit const RecordType MProcessingSettings::kType = RecordTypeOf<MProcessingSettings>(
    L"MProcessingSettings", {RecordVersion::kInt, 1}, kFields, "The image processing of a scan pipeline.");

void MProcessingSettings::SetStrict(bool strict) {
    InterpolatorSettings.SetStrict(strict);
    FilterSettings.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

void MProcessingSettings::DropReference() {
    InterpolatorSettings.DropReference();
    FilterSettings.DropReference();
}

}  // namespace hx
