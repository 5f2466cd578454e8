// One dynamic settings profile: what an operator may change between scans, under a name. Held by the presets
// manager and the settings pages; on the thread of the user interface.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "core/records/RecordType.h"
#include "core/records/Streamable.h"
#include "settings/profile/LastReadStatusHelper.h"

namespace hx {

class MDynObject;

class IScannerDynamicSettings {
public:
    virtual ~IScannerDynamicSettings() = default;
};

class MLaserProfileSettings : public IScannerDynamicSettings,
                              public Streamable<MLaserProfileSettings, 6, StreamableBase, 0>,
                              public LastReadStatusHelper {
public:
    static const RecordType kType;

    MLaserProfileSettings();

    // Reads group `element`; what its version does not carry is taken from `defaults`. On failure the record
    // stays as it was, but for Version, and for RFEnabled of version 1, which becomes true. Raises
    // "OutOfRange" for a laser power beyond 0 to 100; the name is then replaced and nothing else.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MLaserProfileSettings& defaults);
    // Always writes the current version, with all children.
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Raises "ProfileNameEmpty", "ProfileNameReserved", "ProfileNameStartsWith" or "ProfileNameContains" for
    // a name that a user's profile cannot have.
    void ValidateProfileName(std::wstring_view name) const;
    // True for the names of predefined profiles and placeholders, in any letter case; for the name of the
    // unsaved profile if `include_custom`.
    static bool IsReservedProfileName(std::wstring_view name, bool include_custom);

    // Percent of the maximum. Raises "OutOfRange" below 0 and above 100.
    void SetLaserPowerPercentage(double percent);
    // Not checked: the range is the device's.
    void SetExposureTimeInMicrosSeconds(double microseconds) { ExposureTime = microseconds; }

    std::wstring ProfileName;
    double LaserPower{};         // percent of the maximum
    double ExposureTime{};       // microseconds
    uint16_t SignalThreshold{};  // of the imager's intensity
    double MaxInclination{};     // degrees, of a surface that is still measured
    bool EdgeFilter3DEnabled{};
    double EdgeFilter{};
    bool DLPCEnabled{};
    bool RFEnabled{};  // reflection filter
    uint32_t Gain{};   // of the imager; the low 16 bits are written
    uint32_t LocalisationResourceID{};
    uint32_t Version = kStreamVersion;  // that of the element read last

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MLaserProfileSettings& defaults);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;

    std::map<std::wstring, std::shared_ptr<MDynObject>> m_attached;  // released with the record
};

}  // namespace hx
