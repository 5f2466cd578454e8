#include "settings/profile/MLaserProfileSettings.h"

#include "core/errors/MErrorLocation.h"
#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/RecordFields.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MLaserProfileSettings", "MLaserProfileSettingsList",
                                  "IScannerDynamicSettings", "LastReadStatusHelper"};
const StreamedClasses kClasses(kNames);

using Profile = MLaserProfileSettings;
using F = FieldsOf<Profile>;

constexpr Field kFields[] = {
    F::Value<&Profile::ProfileName>(L"ProfileName", L""),
    F::Value<&Profile::LocalisationResourceID>(L"LocalisationResourceID", 0),
    F::Value<&Profile::LaserPower>(L"LaserPower", 20.0, "% of maximum, 0 to 100"),
    F::Value<&Profile::ExposureTime>(L"ExposureTime", 1.0, "us; a scale of 1 to 100 in versions 3 and 4"),
    F::Value<&Profile::SignalThreshold, uint8_t>(L"SignalThreshold", 20).In(VersionSet::Only(3)),
    F::Value<&Profile::SignalThreshold>(L"SignalThreshold", 20).In(VersionSet::From(4)),
    F::Value<&Profile::MaxInclination>(L"MaxInclination", 75.0, "degrees").In(VersionSet::From(3)),
    F::Value<&Profile::EdgeFilter3DEnabled>(L"EdgeFilter3DEnabled", true).In(VersionSet::From(3)),
    F::Value<&Profile::EdgeFilter>(L"EdgeFilter", 5.0).In(VersionSet::From(3)),
    F::Value<&Profile::DLPCEnabled>(L"DLPCEnabled", true),
    F::Value<&Profile::RFEnabled>(L"RFEnabled", true, "reflection filter").In(VersionSet::Except(1)),
    F::Value<&Profile::Gain, uint16_t>(L"Gain", 1).In(VersionSet::From(6)),
};
// The rows in front of the exposure's conversion, and those behind.
constexpr size_t kBehindExposure = 4;
static_assert(kFields[kBehindExposure - 1].child == L"ExposureTime");

constexpr uint16_t kFirstSignalThreshold = 20;

// Versions 3 and 4 told the exposure on a scale up to 100, which stands for 400 us. What lay outside the
// scale was clamped and not scaled; profiles of that time are taken over as they always were.
double MicrosecondsOfScale(double exposure) {
    if (exposure > 100.0) return 100.0;
    if (exposure < 1.0) return 1.0;
    return exposure * 400.0 / 100.0;
}

}  // namespace

constinit const RecordType MLaserProfileSettings::kType = RecordTypeOf<MLaserProfileSettings>(
    L"MLaserProfileSettings", {RecordVersion::kUint, kStreamVersion}, kFields,
    "A dynamic settings profile: what an operator may change between scans.");

MLaserProfileSettings::MLaserProfileSettings() {
    SetDefaults(*this);
}

void MLaserProfileSettings::SetLaserPowerPercentage(double percent) {
    // No number at all is neither below nor above.
    if (percent < 0.0 || percent > 100.0) {
        static MErrorLocation location("MLaserProfileSettings", "SetLaserPowerPercentage");
        location.Set(this, 60);
        Throw(location, MakeError(location, L"OutOfRange"));
    }
    LaserPower = percent;
}

bool MLaserProfileSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                       const MLaserProfileSettings& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MLaserProfileSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] { return WriteImpTagged(filer); });
}

bool MLaserProfileSettings::ReadImpTagged(MFilerTaggedPair& filer, const MLaserProfileSettings& defaults) {
    if (!ReadVersion(filer, Version, 0u, kStreamVersion)) {
        Append(kNoKnownVersion);
        return false;
    }
    const uint32_t version = Version;
    MLaserProfileSettings read = defaults;
    const std::span<const Field> rows = kFields;
    const auto read_rows = [&](std::span<const Field> some) {
        return ReadFields(some, &read, &read, filer, version, ReadRule::kUntilFailure);
    };
    bool all = read_rows(rows.first(kBehindExposure));
    if (version == 3 || version == 4) read.ExposureTime = MicrosecondsOfScale(read.ExposureTime);
    // Where a reader lets version 3 do without the threshold, it is this one, not the defaults'.
    if (version == 3) read.SignalThreshold = kFirstSignalThreshold;
    all = all && read_rows(rows.subspan(kBehindExposure));
    // The first version knew no reflection filter: on, unless a whole profile then brings the defaults'
    // value.
    if (version == 1) RFEnabled = true;
    if (!all) return false;

    ProfileName = std::move(read.ProfileName);
    SetLaserPowerPercentage(read.LaserPower);
    SetExposureTimeInMicrosSeconds(read.ExposureTime);
    SignalThreshold = read.SignalThreshold;
    MaxInclination = read.MaxInclination;
    EdgeFilter3DEnabled = read.EdgeFilter3DEnabled;
    EdgeFilter = read.EdgeFilter;
    DLPCEnabled = read.DLPCEnabled;
    RFEnabled = read.RFEnabled;
    LocalisationResourceID = read.LocalisationResourceID;
    Gain = static_cast<uint16_t>(read.Gain);  // as much as travels
    return true;
}

bool MLaserProfileSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    return WriteVersion(filer, kType.version) && WriteFields(*this, filer);
}

}  // namespace hx
