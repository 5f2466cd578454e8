// The hardware settings of a scanner of the older ZRD family, inside a device's measurement settings. What
// the codes of the modes mean is the scanner's business. Any one thread at a time.
#pragma once

#include <string_view>

#include "core/records/ReferenceCopy.h"
#include "settings/base/FlaggedFields.h"
#include "settings/base/SettingsObjectBase.h"

namespace hx {

class ZRDMeasurementSettings final : public SettingsObjectBase {
public:
    static const RecordType kType;

    ZRDMeasurementSettings();

    // Reads group `element`. The values are read straight into the record, each with its validity flag; one
    // that is missing is taken from `defaults` and makes the read fail. A newer version clears the flags and
    // changes no value. `defaults` is kept as the reference copy in any case.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const ZRDMeasurementSettings& defaults);
    // What is not valid is written as the reference copy has it.
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Whether the last read found the element, and in it a version that it knows.
    bool VersionAccepted() const { return m_version_accepted; }
    // Whether the value of that index came from the last document; true in a new record. Raises "OutOfRange"
    // for an index greater than 40.
    bool IsValid(uint32_t index) const;
    // Marks everything as valid or not.
    void SetAllValid(bool valid) { m_valid = valid ? ~ValidityFlags() : ValidityFlags(); }

    void DropReference() { m_reference.Drop(); }

    uint8_t VideoWin_ROIPercentX{};  // of the image's width
    uint8_t VideoWin_ROIPercentY{};  // of the image's height
    int32_t IntensityLUTType{};
    uint8_t IntensityGain01234{};
    uint8_t IntensityOffset{};
    bool IntensityLowLight{};
    uint32_t RowDelay{};
    uint32_t FrameDelay{};
    uint32_t TrigrSinglePulseDelay_mcs{};  // microseconds, as are the next two
    uint32_t TrigrRepeatPulseDelay_mcs{};
    uint32_t TrigrRepeatPulseWidth_mcs{};
    uint32_t TrigrRepeatPulseCount{};
    uint8_t SubsamplMode{};
    uint8_t SubsamplHSub{};
    uint8_t SubsamplVSub{};
    uint8_t SubsamplHAvr{};
    uint8_t SubsamplVAvr{};
    uint8_t HWImgComprMethod{};
    uint8_t HWImgComprFixedThreshold{};
    uint8_t HWImgComprDynamicThreshold{};
    uint32_t HWImgComprMaxSegmentWidth{};
    uint8_t HWImgComprMaxSegmentsPerLine{};
    uint8_t SpotLaserMode{};
    uint32_t SpotLaserAutoMinPower{};
    uint32_t SpotLaserAutoMaxPower{};
    uint32_t SpotLaserAvrSamples{};
    uint16_t DLPC_RSW{};
    uint8_t DLPC_UE_THRESHOLD{};
    uint16_t DLPC_UE_TARGETLP{};
    uint8_t DLPC_OE_THRESHOLD{};
    uint8_t DLPC_OE_TARGETINT{};
    uint8_t DLPC_TARGETINT{};
    uint8_t DLPC_SPIKETOLINTERVAL{};
    uint8_t DLPC_VISEL{};
    uint8_t DLPC_GREEDY{};
    uint8_t DLPC_FREEZE{};
    uint8_t DLPC_PEAK_WIDTH{};
    uint16_t DLPC_MAX_LP{};
    uint32_t LaserPowerRange{};
    uint32_t FPGA_CounterPrescaller{};
    bool WriteChangesOnly = false;  // writes only what is valid and differs from the reference copy

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const ZRDMeasurementSettings& defaults);
    bool ReadPixelWindow(MFilerTaggedPair& filer);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;

    bool m_version_accepted = false;
    ValidityFlags m_valid = ~ValidityFlags();
    ReferenceCopy<ZRDMeasurementSettings> m_reference;
};

}  // namespace hx
