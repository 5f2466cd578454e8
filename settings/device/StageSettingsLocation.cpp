#include "settings/device/StageSettingsLocation.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"StageSettingsLocation", "SettingsObjectBase"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<StageSettingsLocation>;

constexpr Field kFields[] = {
    F::Value<&StageSettingsLocation::FilePath>(L"FilePath", L""),
    F::Value<&StageSettingsLocation::FileName>(L"FileName", L""),
};

}  // namespace

constinit const RecordType StageSettingsLocation::kType =
    RecordTypeOf<StageSettingsLocation>(L"StageSettingsLocation", {RecordVersion::kInt, kStreamVersion},
                                        kFields, "Where the settings file of a stage lies.");

bool StageSettingsLocation::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                       const StageSettingsLocation& defaults) {
    return InGroup(filer, element, [&] {
        int64_t version = 0;
        return ReadVersion(filer, kType.version, version) &&
               ReadFields(*this, defaults, filer, version, ReadRule::kAll);
    });
}

bool StageSettingsLocation::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
