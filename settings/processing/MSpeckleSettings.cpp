#include "settings/processing/MSpeckleSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MSpeckleSettings"};
const StreamedClasses kClasses(kNames);

using R = MSpeckleSettings;
using F = FieldsOf<R>;

constexpr Field kFields[] = {
    F::Value<&R::Enable>(L"Enable", false),
    F::Value<&R::AutomaticDegree>(L"AutomaticDegree", true, "the degree follows the window"),
    F::Value<&R::Degree>(L"Degree", 1, "of the fitted polynomial"),
    F::Value<&R::WindowSize>(L"WindowSize", 9, "columns"),
    F::Value<&R::NoiseLevel>(L"NoiseLevel", 0.1, "pixels"),
    F::Value<&R::DeltaMax>(L"DeltaMax", 0.1, "pixels"),
};

}  // namespace

constinit const RecordType MSpeckleSettings::kType = RecordTypeOf<MSpeckleSettings>(
    L"MSpeckleSettings", {RecordVersion::kInt, 1}, kFields, "The speckle filter of the image interpolator.");

MSpeckleSettings::MSpeckleSettings() {
    SetDefaults(*this);
}

}  // namespace hx
