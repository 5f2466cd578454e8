#include "settings/processing/MSpeckle3DSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MSpeckle3DSettings"};
const StreamedClasses kClasses(kNames);

using R = MSpeckle3DSettings;
using F = FieldsOf<R>;

constexpr Field kFields[] = {
    F::Value<&R::Enable>(L"Enable", false),
    F::Value<&R::WindowSizeSmooth>(L"WindowSizeSmooth", 7, "points"),
    F::Value<&R::WindowSizeC0>(L"WindowSizeC0", 6, "points, around a jump of the line"),
    F::Value<&R::WindowSizeC1>(L"WindowSizeC1", 7, "points, around a kink of the line"),
    F::Value<&R::NoiseLevel>(L"NoiseLevel", 0.5),
    F::Value<&R::C0Gap>(L"C0Gap", 1.0),
    F::Value<&R::C1Gap>(L"C1Gap", 1.0),
    F::Value<&R::DynamicWindow>(L"DynamicWindow", true),
    F::Value<&R::Degree>(L"Degree", 2, "of the fitted polynomial"),
};

}  // namespace

constinit const RecordType MSpeckle3DSettings::kType = RecordTypeOf<MSpeckle3DSettings>(
    L"MSpeckle3DSettings", {RecordVersion::kInt, 1}, kFields, "The speckle filter of the measured points.");

MSpeckle3DSettings::MSpeckle3DSettings() {
    SetDefaults(*this);
}

}  // namespace hx
