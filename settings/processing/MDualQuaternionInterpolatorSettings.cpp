#include "settings/processing/MDualQuaternionInterpolatorSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MDualQuaternionInterpolatorSettings"};
const StreamedClasses kClasses(kNames);

using R = MDualQuaternionInterpolatorSettings;
using F = FieldsOf<R>;

constexpr Field kFields[] = {
    F::Value<&R::SplineInterpolationOrder>(L"SplineInterpolationOrder", 3, "degree of the spline, 1 or more"),
};

}  // namespace

constinit const RecordType MDualQuaternionInterpolatorSettings::kType =
    RecordTypeOf<MDualQuaternionInterpolatorSettings>(
        L"MDualQuaternionInterpolatorSettings", {RecordVersion::kInt, 1}, kFields,
        "How the scan engine interpolates between the positions of the scanner.");

MDualQuaternionInterpolatorSettings::MDualQuaternionInterpolatorSettings() {
    SetDefaults(*this);
}

}  // namespace hx
