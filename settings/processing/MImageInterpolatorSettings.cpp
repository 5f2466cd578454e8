#include "settings/processing/MImageInterpolatorSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MImageInterpolatorSettings"};
const StreamedClasses kClasses(kNames);

using R = MImageInterpolatorSettings;
using F = FieldsOf<R>;

// Versions 2 and 3 carry no limits of the reflectivity: what a document of theirs says of them was never
// read.
constexpr Field kFields[] = {
    F::Value<&R::Smooth>(L"Smooth", 0.0),
    F::Value<&R::PerspectiveOnly>(L"PerspectiveOnly", 0),
    F::Record<&R::SpeckleSettings>(L"SpeckleSettings"),
    F::Former<&R::MinReflectivity>(L"Min Reflectivity", VersionSet::UpTo(1), "MinReflectivity"),
    F::Former<&R::MaxReflectivity>(L"Max Reflectivity", VersionSet::UpTo(1), "MaxReflectivity"),
    F::Value<&R::MinReflectivity>(L"MinReflectivity", 0.0, "0 to 1").In(VersionSet::From(4)),
    F::Value<&R::MaxReflectivity>(L"MaxReflectivity", 1.0, "0 to 1").In(VersionSet::From(4)),
    F::Value<&R::NoClipping>(L"NoClipping", false).In(VersionSet::From(3)),
    F::Value<&R::QualityBorderDistance>(L"QualityBorderDistance", 0.5).In(VersionSet::From(5)),
};

}  // namespace

constinit const RecordType MImageInterpolatorSettings::kType =
    RecordTypeOf<MImageInterpolatorSettings>(L"MImageInterpolatorSettings", {RecordVersion::kInt, 5}, kFields,
                                             "How the image of the laser line is interpolated.");

MImageInterpolatorSettings::MImageInterpolatorSettings() {
    SetDefaults(*this);
}

void MImageInterpolatorSettings::SetStrict(bool strict) {
    SpeckleSettings.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

}  // namespace hx
