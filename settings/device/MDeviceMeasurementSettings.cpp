#include "settings/device/MDeviceMeasurementSettings.h"

#include <array>

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"

namespace hx {

using Device = MDeviceMeasurementSettings;

// Hardware settings of one scanner family: optional, and written back only if the document carried them.
// They did if their version was accepted, even where single values were missing.
template <auto kMember, uint32_t kBit>
struct HardwareOps {
    using Member = typename detail::MemberOf<decltype(kMember)>::type;

    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        Device& device = *static_cast<Device*>(record);
        Member& member = device.*kMember;
        const bool read =
            member.ReadTagged(filer, field.child, static_cast<const Device*>(fallback)->*kMember);
        if (member.VersionAccepted()) device.m_present |= kBit;
        return read;
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        const Device& device = *static_cast<const Device*>(record);
        return (device.m_present & kBit) == 0 || (device.*kMember).WriteTagged(filer, field.child);
    }

    static constexpr FieldOps kOps{{}, 0, &detail::RecordOps<Device, kMember>::At, &Read, &Write};
};

namespace {

constexpr const char* kNames[] = {"MDeviceMeasurementSettings", "SettingsObjectBase"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<Device>;

// An element that counts only if it is there and cannot be read; all its children are attempted.
template <const auto& kRows>
bool ReadIfThere(void* record, MFilerTaggedPair& filer, std::wstring_view element, const void* fallback) {
    return InOptionalGroup(filer, element,
                           [&] { return ReadFields(kRows, record, fallback, filer, 0, ReadRule::kAll); });
}

bool WriteNothing(const void*, MFilerTaggedPair&, std::wstring_view) {
    return true;
}

template <const auto& kRows>
constexpr RecordType OptionalElement(std::wstring_view name, std::string_view purpose) {
    return {name, {RecordVersion::kNone, 0}, kRows, purpose, &ReadIfThere<kRows>, nullptr, nullptr};
}
// One that is read and never written.
template <const auto& kRows>
constexpr RecordType RetiredElement(std::wstring_view name, std::string_view purpose) {
    return {name, {RecordVersion::kNone, 0}, kRows, purpose, &ReadIfThere<kRows>, &WriteNothing, nullptr};
}

// A pipeline may be there for another program's sake, without settings.
bool ReadProcessing(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
    return static_cast<Device*>(record)->Processing.ReadIfThere(
        filer, field.child, static_cast<const Device*>(fallback)->Processing);
}
using ProcessingOps = detail::RecordOps<Device, &Device::Processing>;
constexpr FieldOps kProcessingOps{{}, 0, &ProcessingOps::At, &ReadProcessing, &ProcessingOps::Write};

constexpr Field kPipelineFields[] = {
    {L"ProcessingSettings", &kProcessingOps, {}, "may be absent"},
};
constexpr RecordType kPipeline =
    OptionalElement<kPipelineFields>(L"Pipeline", "The scan pipeline's processing settings; may be absent.");
constexpr RecordType kOtherPipeline = RetiredElement<kPipelineFields>(
    L"OtherPipeline", "The same, as other scanner families have it; may be absent, and is not written.");

// Whichever of them are there are read into the same settings, so the last one counts.
constexpr Field kProcessorsFields[] = {
    F::Element<kOtherPipeline>(L"FxPipeline"),
    F::Element<kPipeline>(L"HXPipeline"),
    F::Element<kOtherPipeline>(L"PeaksPipeline"),
};
constexpr RecordType kProcessors = OptionalElement<kProcessorsFields>(
    L"ScanProcessors", "A pipeline for each scanner family; may be absent.");

constexpr std::array<Field, 0> kNoFields;
constexpr RecordType kLogger =
    OptionalElement<kNoFields>(L"FrequencyLogger", "Has nothing to set; may be absent.");

constexpr Field kScanPipelineFields[] = {
    F::Element<kProcessors>(L"ScanProcessors"),
    F::Element<kLogger>(L"FrequencyLogger"),
};
constexpr RecordType kScanPipeline =
    OptionalElement<kScanPipelineFields>(L"ScanPipeline", "How scanned lines are processed; may be absent.");

template <auto kMember, uint32_t kBit>
constexpr Field Hardware(std::wstring_view child) {
    return {child, &HardwareOps<kMember, kBit>::kOps, {}, {}, VersionSet::All(), true};
}

constexpr VersionSet kWithPipeline = VersionSet::Except(Device::kHardwareOnlyVersion);

constexpr Field kFields[] = {
    F::Record<&Device::Stage2DSettings>(L"Stage2DSettings").In(kWithPipeline),
    F::Record<&Device::StageAlignmentSettings>(L"StageAlignmentSettings").In(kWithPipeline),
    F::Record<&Device::Stage3DSettings>(L"Stage3DSettings").In(kWithPipeline),
    F::Element<kScanPipeline>(L"ScanPipeline").In(kWithPipeline),
    F::Record<&Device::ScanEngine>(L"ScanEngineProcessingSettings").In(kWithPipeline),
    Hardware<&Device::ZRD, 1>(L"ZRDMeasurementSettings"),
    Hardware<&Device::HX, 2>(L"HXMeasurementSettings"),
};
// The hardware settings stand at the end; missing, they are taken from the defaults in any case.
constexpr size_t kHardwareRows = 2;

}  // namespace

constinit const RecordType MDeviceMeasurementSettings::kType = RecordTypeOf<Device>(
    L"MDeviceMeasurementSettings", {RecordVersion::kInt, kCurrentVersion}, kFields,
    "The measurement settings of one scanner. A record of version 1 is written as such.");

bool MDeviceMeasurementSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                            const MDeviceMeasurementSettings& defaults) {
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool MDeviceMeasurementSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] { return WriteImpTagged(filer); });
}

void MDeviceMeasurementSettings::SetStrict(bool strict) {
    Stage2DSettings.SetStrict(strict);
    StageAlignmentSettings.SetStrict(strict);
    Stage3DSettings.SetStrict(strict);
    Processing.SetStrict(strict);
    ScanEngine.SetStrict(strict);
    ZRD.SetStrict(strict);
    HX.SetStrict(strict);
    SettingsObjectBase::SetStrict(strict);
}

void MDeviceMeasurementSettings::DropReference() {
    m_reference.Drop();
    Processing.DropReference();
    ScanEngine.DropReference();
    ZRD.DropReference();
    HX.DropReference();
}

bool MDeviceMeasurementSettings::ReadImpTagged(MFilerTaggedPair& filer,
                                               const MDeviceMeasurementSettings& defaults) {
    m_reference.Set(defaults);
    int32_t version = 0;
    const bool known = ReadVersion(filer, version, kCurrentVersion, kCurrentVersion);
    // One that is missing stands for the current one, and is an error all the same.
    if (version <= kCurrentVersion) Version = version;
    if (!known) return false;
    m_has_pipeline = version != kHardwareOnlyVersion;
    m_present = 0;
    const std::span<const Field> rows = kFields;
    const bool read =
        ReadByStrictRule(rows.first(rows.size() - kHardwareRows), *this, defaults, filer, version);
    ReadFields(rows.last(kHardwareRows), this, &defaults, filer, version, ReadRule::kAll);
    return read;
}

bool MDeviceMeasurementSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    return filer.Write(kVersionChild, Version) && WriteFields(kFields, this, filer, Version);
}

}  // namespace hx
