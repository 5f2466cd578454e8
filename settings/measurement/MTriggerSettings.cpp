#include "settings/measurement/MTriggerSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MTriggerSettings", "MGlobalScanningSettings"};
const StreamedClasses kClasses(kNames);

using Trigger = MTriggerSettings;
using F = FieldsOf<Trigger>;

// The first version had names of its own; version 0 is read like the second.
constexpr VersionSet kFirst = VersionSet::Only(1);
constexpr VersionSet kLater = VersionSet::Except(1);
constexpr VersionSet kWithPeriods = kLater & VersionSet::UpTo(4);

constexpr Field kFields[] = {
    F::Value<&Trigger::ActiveTriggerEdgeOrPolarity>(L"ActiveTriggerEdgeOrPolarity", true).In(kFirst),
    F::Retired<uint32_t>(L"MinTriggerPeriod_microsec", kFirst),
    F::Retired<uint32_t>(L"MaxTriggerPeriod_microsec", kFirst),
    F::Value<&Trigger::MinTriggerAssertTime_us>(L"MinTriggerAssertTime_microsec", 0, "us").In(kFirst),
    F::Retired<int32_t>(L"RelativeTriggerDelay_microsec", kFirst),
    F::Value<&Trigger::ActiveTriggerEdgeOrPolarity>(L"PolarityActiveHigh", true).In(kLater),
    F::Retired<uint32_t>(L"MinTriggerPeriod_us", kWithPeriods),
    F::Retired<uint32_t>(L"MaxTriggerPeriod_us", kWithPeriods),
    F::Value<&Trigger::MinTriggerAssertTime_us>(L"MinTriggerAssertTime_us", 0, "us").In(kLater),
    // Came with version 3 and went with it.
    F::Retired<uint32_t>(L"MaxReconstructedPositions", VersionSet::Only(3)),
};

}  // namespace

constinit const RecordType MTriggerSettings::kType =
    RecordTypeOf<MTriggerSettings>(L"MTriggerSettings", {RecordVersion::kUint, 5}, kFields,
                                   "Trigger settings taken over from a localiser; only ever read.");

MTriggerSettings::MTriggerSettings() {
    SetDefaults(*this);
}

bool MTriggerSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                  const MTriggerSettings& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MTriggerSettings::ReadImpTagged(MFilerTaggedPair& filer, const MTriggerSettings& defaults) {
    uint32_t version = 0;
    return ReadVersion(filer, version, 0u, kType.version.current) &&
           ReadFields(*this, defaults, filer, version, ReadRule::kAll);
}

}  // namespace hx
