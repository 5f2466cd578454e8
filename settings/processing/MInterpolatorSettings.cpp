#include "settings/processing/MInterpolatorSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"
#include "settings/processing/MSpoilerSettings.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MInterpolatorSettings"};
const StreamedClasses kClasses(kNames);

using Interpolator = MInterpolatorSettings;
using F = FieldsOf<Interpolator>;

// The table is that of the class which the record has, and so are the operations.
constexpr FieldOps kColumnOps{
    L"MColumnInterpolatorSettings", 0,
    [](void* record) -> FieldRef { return static_cast<Interpolator*>(record)->MaxIntensitySettings->Ref(); },
    [](const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        return static_cast<Interpolator*>(record)->MaxIntensitySettings->ReadTagged(
            filer, field.child, *static_cast<const Interpolator*>(fallback)->MaxIntensitySettings);
    },
    [](const Field& field, const void* record, MFilerTaggedPair& filer) {
        return static_cast<const Interpolator*>(record)->MaxIntensitySettings->WriteTagged(filer,
                                                                                           field.child);
    }};

// The spoiler filter has moved to the scan engine's settings; what an old document says of it counts, but is
// dropped except for the orientation.
constexpr FieldOps kSpoilerOps{L"MSpoilerSettings", 0, nullptr,
                               [](const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
                                   Interpolator& interpolator = *static_cast<Interpolator*>(record);
                                   MSpoilerSettings spoiler;
                                   spoiler.SetStrict(interpolator.IsStrict());
                                   const bool read = spoiler.ReadTagged(filer, field.child, spoiler);
                                   if (read) interpolator.SpoilerOrientation = spoiler.OrientationValue();
                                   return read;
                               },
                               nullptr};

constexpr uint32_t kFirstWithPeaks = 2;

constexpr Field kFields[] = {
    {L"MaxIntensitySettings", &kColumnOps, {}, "the column interpolator, of this class or a derived one"},
    F::Record<&Interpolator::ImageInterpolatorSettings>(L"ImageInterpolatorSettings"),
    {L"OtherSettings", &kSpoilerOps, {}, "the spoiler filter", VersionSet::UpTo(2)},
    {L"SpoilerFilterSettings", &kSpoilerOps, {}, "the spoiler filter", VersionSet::Only(3)},
    F::Record<&Interpolator::MultiplePeakDetectionSettings>(L"MultiplePeakDetectionSettings")
        .In(VersionSet::From(kFirstWithPeaks)),
    F::Record<&Interpolator::ReflectionFilterSettings>(L"ReflectionFilterSettings")
        .In(VersionSet::From(kFirstWithPeaks)),
};
constexpr size_t kBehindSpoiler = 4;
static_assert(kFields[kBehindSpoiler - 1].child == L"SpoilerFilterSettings");

// The first version ended with the spoiler filter. One of which something is missing may be a later one that
// was not told right, and is searched for the rest.
bool MayHavePeaks(int32_t version, bool all_before) {
    return version >= static_cast<int32_t>(kFirstWithPeaks) || (version == 1 && !all_before);
}

}  // namespace

constinit const RecordType MInterpolatorSettings::kType =
    RecordTypeOf<MInterpolatorSettings>(L"MInterpolatorSettings", {RecordVersion::kInt, 4}, kFields,
                                        "How the laser line is found and interpolated in the images.");

void MInterpolatorSettings::SetStrict(bool strict) {
    MaxIntensitySettings->SetStrict(strict);
    ImageInterpolatorSettings.SetStrict(strict);
    MultiplePeakDetectionSettings.SetStrict(strict);
    ReflectionFilterSettings.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

bool MInterpolatorSettings::ReadImpTagged(MFilerTaggedPair& filer, const MInterpolatorSettings& defaults) {
    m_reference.Set(defaults);
    int32_t version = 0;
    const bool has_version = ReadVersion(filer, version, 1);
    const std::span<const Field> rows = kFields;
    bool all = ReadByStrictRule(rows.first(kBehindSpoiler), *this, defaults, filer, version) && has_version;
    if (MayHavePeaks(version, all)) {
        all &= ReadByStrictRule(rows.subspan(kBehindSpoiler), *this, defaults, filer, kFirstWithPeaks);
    }
    return all;
}

}  // namespace hx
