#include "settings/measurement/MHXMeasurementSettings.h"

#include "core/errors/MErrorLocation.h"
#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MHXMeasurementSettings", "SettingsObjectBase"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MHXMeasurementSettings>;

constexpr Field kFields[] = {
    F::Value<&MHXMeasurementSettings::ExposureRange_us>(L"ExposureRange_us", 0, "us").Flag(40),
};

}  // namespace

constinit const RecordType MHXMeasurementSettings::kType =
    RecordTypeOf<MHXMeasurementSettings>(L"MHXMeasurementSettings", {RecordVersion::kInt, 1}, kFields,
                                         "Hardware settings of a scanner of the HX family.");

MHXMeasurementSettings::MHXMeasurementSettings() {
    SetDefaults(*this);
}

bool MHXMeasurementSettings::IsValid(uint32_t index) const {
    if (index < kValidityFlags) return m_valid[index];
    static MErrorLocation location("MHXMeasurementSettings", "IsValid");
    location.Set(this, 42);
    Throw(location, MakeError(location, L"OutofRange"));
}

bool MHXMeasurementSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                        const MHXMeasurementSettings& defaults) {
    m_version_accepted = false;
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MHXMeasurementSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] { return WriteImpTagged(filer); });
}

bool MHXMeasurementSettings::ReadImpTagged(MFilerTaggedPair& filer, const MHXMeasurementSettings& defaults) {
    m_reference.Set(defaults);
    SetAllValid(false);
    int32_t version = 0;
    if (!ReadVersion(filer, version, 0, static_cast<int32_t>(kType.version.current))) return false;
    m_version_accepted = true;
    return ReadFlagged(kFields, this, &defaults, filer, version, m_valid);
}

bool MHXMeasurementSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    return WriteVersion(filer, kType.version) &&
           WriteFlagged(kFields, {this, m_reference.get(), m_valid, WriteChangesOnly}, filer,
                        kType.version.current);
}

}  // namespace hx
