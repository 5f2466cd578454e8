// The measurement settings of one scanner: the files of its stages, the scan pipeline, the scan engine and
// the hardware settings of its family. Held by a scanner's measurement settings; any one thread at a time.
#pragma once

#include <string_view>

#include "core/records/ReferenceCopy.h"
#include "settings/base/SettingsObjectBase.h"
#include "settings/device/MScanEngineProcessingSettings.h"
#include "settings/device/StageSettingsLocation.h"
#include "settings/measurement/MHXMeasurementSettings.h"
#include "settings/measurement/ZRDMeasurementSettings.h"
#include "settings/processing/MProcessingSettings.h"

namespace hx {

class MDeviceMeasurementSettings final : public SettingsObjectBase {
public:
    // Older documents hold hardware settings alone.
    static constexpr int32_t kHardwareOnlyVersion = 1;
    static constexpr int32_t kCurrentVersion = 2;
    static const RecordType kType;

    // Reads group `element` straight into the members. Strict, what is missing keeps the record's own values
    // and makes the read fail, unless it is an optional element; otherwise members are read against those of
    // `defaults`, and only a missing or newer version fails. `defaults` is kept as the reference copy.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MDeviceMeasurementSettings& defaults);
    // Writes the version that the record has, with what that version carries, and of the hardware settings
    // those that the last document did.
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Passed on to all members first.
    void SetStrict(bool strict) override;

    // Whether the last document could tell of the scan pipeline.
    bool HasPipeline() const { return m_has_pipeline; }

    void DropReference();

    StageSettingsLocation Stage2DSettings;
    StageSettingsLocation StageAlignmentSettings;
    StageSettingsLocation Stage3DSettings;
    MProcessingSettings Processing;
    MScanEngineProcessingSettings ScanEngine;
    ZRDMeasurementSettings ZRD;
    MHXMeasurementSettings HX;
    int32_t Version = kCurrentVersion;  // that of the element read last

private:
    template <auto kMember, uint32_t kBit>
    friend struct HardwareOps;

    bool ReadImpTagged(MFilerTaggedPair& filer, const MDeviceMeasurementSettings& defaults);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;

    bool m_has_pipeline = false;
    uint32_t m_present = 0;  // which hardware settings the last document carried, a bit each
    ReferenceCopy<MDeviceMeasurementSettings> m_reference;
};

}  // namespace hx
