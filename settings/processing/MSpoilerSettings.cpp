#include "settings/processing/MSpoilerSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MSpoilerSettings"};
const StreamedClasses kClasses(kNames);

using Spoiler = MSpoilerSettings;
using Orientation = MSpoilerSettings::Orientation;
using F = FieldsOf<Spoiler>;

constexpr std::wstring_view kAngleChild = L"OrientAngle";
constexpr std::wstring_view kCosineChild = L"CosOrientAngle";

// No version tells which form a document has: each is tried.
bool ReadOrientation(const Field&, void* record, const void* fallback, MFilerTaggedPair& filer) {
    Spoiler& spoiler = *static_cast<Spoiler*>(record);
    double number = 0;
    if (filer.Read(kAngleChild, number, 0.0) && filer.Found()) {
        spoiler.OrientAngle = number;
        spoiler.OrientationForm = Orientation::kAngle;
        return true;
    }
    const bool answer = filer.Read(kCosineChild, number, 0.0);
    if (answer && filer.Found()) {
        spoiler.CosOrientAngle = number;
        spoiler.OrientationForm = Orientation::kCosine;
        return true;
    }
    const Spoiler& otherwise = *static_cast<const Spoiler*>(fallback);
    spoiler.OrientAngle = otherwise.OrientAngle;
    spoiler.CosOrientAngle = otherwise.CosOrientAngle;
    spoiler.OrientationForm = otherwise.OrientationForm;
    return answer;
}

// Done with the angle.
bool ReadNothing(const Field&, void*, const void*, MFilerTaggedPair&) {
    return true;
}

template <auto kMember, Orientation kForm>
bool WriteIfInForce(const Field& field, const void* record, MFilerTaggedPair& filer) {
    const Spoiler& spoiler = *static_cast<const Spoiler*>(record);
    return spoiler.OrientationForm != kForm || filer.Write(field.child, spoiler.*kMember);
}

constexpr FieldOps kAngleOps{
    TaggedType<double>::kWord, 0,
    [](void* record) -> FieldRef { return &static_cast<Spoiler*>(record)->OrientAngle; }, &ReadOrientation,
    &WriteIfInForce<&Spoiler::OrientAngle, Orientation::kAngle>};
constexpr FieldOps kCosineOps{
    TaggedType<double>::kWord, 0,
    [](void* record) -> FieldRef { return &static_cast<Spoiler*>(record)->CosOrientAngle; }, &ReadNothing,
    &WriteIfInForce<&Spoiler::CosOrientAngle, Orientation::kCosine>};

constexpr double kEightyDegrees = 1.3962634015954636;
constexpr double kCosineOf75Degrees = 0.25881904510252074;

constexpr Field kFields[] = {
    F::Value<&Spoiler::AR>(L"AR", false),
    F::Value<&Spoiler::Geom>(L"Geom", 1),
    F::Value<&Spoiler::Scale>(L"Scale", 4.0),
    F::Value<&Spoiler::NumGeneration>(L"NumGeneration", 0),
    F::Value<&Spoiler::Angle>(L"Angle", kEightyDegrees, "radians"),
    F::Value<&Spoiler::BorderDistance>(L"BorderDistance", 0.5),
    {kAngleChild, &kAngleOps, 75.0, "degrees; this or the cosine"},
    {kCosineChild, &kCosineOps, kCosineOf75Degrees, "cosine; this or the angle"},
    F::Value<&Spoiler::StripeBufferSize>(L"StripeBufferSize", 3, "stripes"),
};

}  // namespace

constinit const RecordType MSpoilerSettings::kType =
    RecordTypeOf<MSpoilerSettings>(L"MSpoilerSettings", {RecordVersion::kInt, 1}, kFields,
                                   "The spoiler filter: takes out points that spoil the surface.");

MSpoilerSettings::MSpoilerSettings() {
    SetDefaults(*this);
}

}  // namespace hx
