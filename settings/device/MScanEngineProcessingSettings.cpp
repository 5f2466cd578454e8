#include "settings/device/MScanEngineProcessingSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MScanEngineProcessingSettings", "SettingsObjectBase"};
const StreamedClasses kClasses(kNames);

using Engine = MScanEngineProcessingSettings;
using F = FieldsOf<Engine>;

constexpr Field kFields[] = {
    F::Value<&Engine::ModuleName>(L"ModuleName", L"AsynchroLaserScanningEngine.dll").In(VersionSet::From(2)),
    F::Record<&Engine::SpoilerFilter>(L"SpoilerFilterSettings"),
    F::Record<&Engine::DualQuaternionInterpolator>(L"DualQuaternionInterpolatorSettings")
        .In(VersionSet::From(3)),
};

}  // namespace

constinit const RecordType MScanEngineProcessingSettings::kType =
    RecordTypeOf<Engine>(L"MScanEngineProcessingSettings", {RecordVersion::kInt, 3}, kFields,
                         "What the scan engine does with the scanned lines.");

MScanEngineProcessingSettings::MScanEngineProcessingSettings() {
    SetDefaults(*this);
}

bool MScanEngineProcessingSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                               const MScanEngineProcessingSettings& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MScanEngineProcessingSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

void MScanEngineProcessingSettings::SetStrict(bool strict) {
    SpoilerFilter.SetStrict(strict);
    DualQuaternionInterpolator.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

bool MScanEngineProcessingSettings::ReadImpTagged(MFilerTaggedPair& filer,
                                                  const MScanEngineProcessingSettings& defaults) {
    m_reference.Set(defaults);
    const auto newest = static_cast<int32_t>(kType.version.current);
    int32_t version = newest;
    const bool has_version = ReadVersion(filer, version, newest);
    if (version > newest) return false;
    const std::span<const Field> rows = kFields;
    // A module that is not named stays, whatever the defaults say.
    const bool module = ReadByStrictRule(rows.first(1), *this, *this, filer, version);
    const bool others = ReadByStrictRule(rows.subspan(1), *this, defaults, filer, version);
    return has_version && module && others;
}

}  // namespace hx
