#include "settings/measurement/ZRDMeasurementSettings.h"

#include <array>

#include "core/errors/MErrorLocation.h"
#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/measurement/MTriggerSettings.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"ZRDMeasurementSettings", "MeasurementAreaZrd", "SettingsObjectBase"};
const StreamedClasses kClasses(kNames);

using Zrd = ZRDMeasurementSettings;
using F = FieldsOf<Zrd>;

// A trigger that is missing or cut short makes the read fail, though nothing of it is kept.
bool ReadTrigger(const Field& field, void*, const void*, MFilerTaggedPair& filer) {
    return MTriggerSettings().ReadTagged(filer, field.child, {});
}
constexpr FieldOps kTriggerOps{L"MTriggerSettings", 0, nullptr, &ReadTrigger, nullptr};

// An edge of the window of old versions, which ReadPixelWindow reads.
constexpr VersionSet kInPixels = VersionSet::UpTo(1);
constexpr Field Pixels(std::wstring_view child, int64_t fallback, std::string_view unit) {
    return {child, F::Retired<int32_t>(child, kInPixels).ops, fallback, unit, kInPixels};
}

constexpr Field kFields[] = {
    {L"TriggerSettingsFromLocaliser", &kTriggerOps, {}, {}, VersionSet::UpTo(6)},
    Pixels(L"VideoWin_x1", 0, "pixels"),
    Pixels(L"VideoWin_y1", 0, "pixels"),
    Pixels(L"VideoWin_W", 600, "pixels; VideoWin_ROIPercentX is made of it"),
    Pixels(L"VideoWin_H", 1024, "pixels; VideoWin_ROIPercentY is made of it"),
    F::Value<&Zrd::VideoWin_ROIPercentX>(L"VideoWin_ROIPercentX", 100, "% of the image's width")
        .In(VersionSet::From(2))
        .Flag(0),
    F::Value<&Zrd::VideoWin_ROIPercentY>(L"VideoWin_ROIPercentY", 100, "% of the image's height")
        .In(VersionSet::From(2))
        .Flag(1),
    F::Value<&Zrd::IntensityLUTType>(L"IntensityLUTType", 3).Flag(2),
    F::Value<&Zrd::IntensityGain01234>(L"IntensityGain01234", 0).Flag(3),
    F::Value<&Zrd::IntensityOffset>(L"IntensityOffset", 0).Flag(4),
    F::Value<&Zrd::IntensityLowLight>(L"IntensityLowLight", false).Flag(5),
    F::Value<&Zrd::RowDelay>(L"RowDelay", 8).Flag(6),
    F::Value<&Zrd::FrameDelay>(L"FrameDelay", 8).Flag(7),
    // Flag 8 was the trigger mode's.
    F::Retired<uint32_t>(L"TrigrMode", VersionSet::UpTo(5)).Optional(),
    F::Retired<bool>(L"TrigrActiveState", VersionSet::UpTo(6)).Optional(),
    F::Value<&Zrd::TrigrSinglePulseDelay_mcs>(L"TrigrSinglePulseDelay_mcs", 0, "us").Flag(9),
    F::Retired<uint32_t>(L"TrigrSinglePulseWidth_mcs", VersionSet::UpTo(6)).Optional(),
    F::Value<&Zrd::TrigrRepeatPulseDelay_mcs>(L"TrigrRepeatPulseDelay_mcs", 0, "us").Flag(10),
    F::Value<&Zrd::TrigrRepeatPulseWidth_mcs>(L"TrigrRepeatPulseWidth_mcs", 1000, "us").Flag(11),
    F::Value<&Zrd::TrigrRepeatPulseCount>(L"TrigrRepeatPulseCount", 1).Flag(12),
    F::Retired<uint32_t>(L"TrigrSkipCount", VersionSet::UpTo(4)).Optional(),
    F::Value<&Zrd::SubsamplMode>(L"SubsamplMode", 0).Flag(13),
    F::Value<&Zrd::SubsamplHSub>(L"SubsamplHSub", 0).Flag(14),
    F::Value<&Zrd::SubsamplVSub>(L"SubsamplVSub", 0).Flag(15),
    F::Value<&Zrd::SubsamplHAvr>(L"SubsamplHAvr", 0).Flag(16),
    F::Value<&Zrd::SubsamplVAvr>(L"SubsamplVAvr", 0).Flag(17),
    F::Value<&Zrd::HWImgComprMethod>(L"HWImgComprMethod", 0).Flag(18),
    F::Value<&Zrd::HWImgComprFixedThreshold>(L"HWImgComprFixedThreshold", 96).Flag(19),
    F::Value<&Zrd::HWImgComprDynamicThreshold>(L"HWImgComprDynamicThreshold", 76).Flag(20),
    F::Value<&Zrd::HWImgComprMaxSegmentWidth>(L"HWImgComprMaxSegmentWidth", 32).Flag(21),
    F::Value<&Zrd::HWImgComprMaxSegmentsPerLine>(L"HWImgComprMaxSegmentsPerLine", 4).Flag(22),
    F::Value<&Zrd::SpotLaserMode>(L"SpotLaserMode", 1).Flag(23),
    F::Value<&Zrd::SpotLaserAutoMinPower>(L"SpotLaserAutoMinPower", 1024).Flag(24),
    F::Value<&Zrd::SpotLaserAutoMaxPower>(L"SpotLaserAutoMaxPower", 65535).Flag(25),
    F::Value<&Zrd::SpotLaserAvrSamples>(L"SpotLaserAvrSamples", 500).Flag(26),
    F::Value<&Zrd::DLPC_RSW>(L"DLPC_RSW", 0).Flag(27),
    F::Value<&Zrd::DLPC_UE_THRESHOLD>(L"DLPC_UE_THRESHOLD", 10).Flag(28),
    F::Value<&Zrd::DLPC_UE_TARGETLP>(L"DLPC_UE_TARGETLP", 1024).Flag(29),
    F::Value<&Zrd::DLPC_OE_THRESHOLD>(L"DLPC_OE_THRESHOLD", 250).Flag(30),
    F::Value<&Zrd::DLPC_OE_TARGETINT>(L"DLPC_OE_TARGETINT", 100).Flag(31),
    F::Value<&Zrd::DLPC_TARGETINT>(L"DLPC_TARGETINT", 150).Flag(32),
    F::Value<&Zrd::DLPC_SPIKETOLINTERVAL>(L"DLPC_SPIKETOLINTERVAL", 30).Flag(33),
    F::Value<&Zrd::DLPC_VISEL>(L"DLPC_VISEL", 1).Flag(34),
    F::Value<&Zrd::DLPC_GREEDY>(L"DLPC_GREEDY", 0).Flag(35),
    F::Value<&Zrd::DLPC_FREEZE>(L"DLPC_FREEZE", 0).Flag(36),
    F::Value<&Zrd::DLPC_PEAK_WIDTH>(L"DLPC_PEAK_WIDTH", 40).Flag(37),
    F::Value<&Zrd::DLPC_MAX_LP>(L"DLPC_MAX_LP", 4095).Flag(38),
    F::Value<&Zrd::LaserPowerRange>(L"LaserPowerRange", 4095).Flag(39),
    F::Value<&Zrd::FPGA_CounterPrescaller>(L"FPGA_CounterPrescaller", 2700).Flag(40),
};
constexpr std::span<const Field> kRows = kFields;
constexpr size_t kWindow = 1;
constexpr size_t kBehindWindow = 5;
constexpr size_t kWidth = kWindow + 2;
constexpr size_t kHeight = kWindow + 3;
static_assert(kFields[kWidth].child == L"VideoWin_W" && kFields[kHeight].child == L"VideoWin_H");

// The nearest of the portions that later versions offer.
uint8_t PercentOfWidth(int32_t pixels) {
    return pixels / 600.0 < 0.75 ? 50 : 100;
}

uint8_t PercentOfHeight(int32_t pixels) {
    const double portion = pixels / 1024.0;
    if (portion < 0.37) return 24;
    if (portion < 0.635) return 50;
    return portion < 0.885 ? 77 : 100;
}

}  // namespace

constinit const RecordType ZRDMeasurementSettings::kType =
    RecordTypeOf<ZRDMeasurementSettings>(L"ZRDMeasurementSettings", {RecordVersion::kInt, 8}, kFields,
                                         "Hardware settings of a scanner of the ZRD family.");

ZRDMeasurementSettings::ZRDMeasurementSettings() {
    SetDefaults(*this);
}

bool ZRDMeasurementSettings::IsValid(uint32_t index) const {
    if (index < kValidityFlags) return m_valid[index];
    static MErrorLocation location("ZRDMeasurementSettings", "IsValid");
    location.Set(this, 136);
    Throw(location, MakeError(location, L"OutOfRange"));
}

bool ZRDMeasurementSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                                        const ZRDMeasurementSettings& defaults) {
    m_version_accepted = false;
    return InGroup(filer, element, [&] { return ReadImpTagged(filer, defaults); });
}

bool ZRDMeasurementSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return InGroup(filer, element, [&] { return WriteImpTagged(filer); });
}

bool ZRDMeasurementSettings::ReadImpTagged(MFilerTaggedPair& filer, const ZRDMeasurementSettings& defaults) {
    m_reference.Set(defaults);
    SetAllValid(false);
    int32_t version = 0;
    if (!ReadVersion(filer, version, 0, static_cast<int32_t>(kType.version.current))) return false;
    m_version_accepted = true;
    bool all = ReadFlagged(kRows.first(kWindow), this, &defaults, filer, version, m_valid);
    if (kInPixels.Contains(version)) all &= ReadPixelWindow(filer);
    all &= ReadFlagged(kRows.subspan(kBehindWindow), this, &defaults, filer, version, m_valid);
    return all;
}

// The window, told in pixels, becomes the portion of the image that it comes nearest to; it has been centred
// ever since, so where it began is dropped. Without all four edges nothing is taken, not even the defaults.
bool ZRDMeasurementSettings::ReadPixelWindow(MFilerTaggedPair& filer) {
    std::array<int32_t, kBehindWindow> pixels{};
    bool all = true;
    for (size_t row = kWindow; row < kBehindWindow; ++row) {
        const Field& edge = kFields[row];
        all &= filer.Read(edge.child, pixels[row], static_cast<int32_t>(std::get<int64_t>(edge.fallback)));
    }
    if (!all) return false;
    VideoWin_ROIPercentX = PercentOfWidth(pixels[kWidth]);
    VideoWin_ROIPercentY = PercentOfHeight(pixels[kHeight]);
    m_valid.set(0);
    m_valid.set(1);
    return true;
}

bool ZRDMeasurementSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    return WriteVersion(filer, kType.version) &&
           WriteFlagged(kFields, {this, m_reference.get(), m_valid, WriteChangesOnly}, filer,
                        kType.version.current);
}

}  // namespace hx
