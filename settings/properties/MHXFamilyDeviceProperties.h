// What the driver of the HX family tells of its scanners: numbers, versions and dates. As its base.
#pragma once

#include "settings/properties/MCommonScannerDeviceProperties.h"

namespace hx {

class MHXFamilyDeviceProperties : public MCommonScannerDeviceProperties {
public:
    static const RecordType kType;

    MHXFamilyDeviceProperties();

    // Demands version 1 exactly. Of the family's own children each is read whatever became of those in front
    // of it, so that what the document has is there to be shown even if the read fails.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const MCommonDeviceProperties& defaults) override;
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const override;

    std::wstring ScannerSerialNumber;
    std::wstring ScannerHardwareVersion;
    CalendarDate ScannerManufacturingDate;
    std::wstring FpgaSerialNumber;
    std::wstring FirmwareFpgaVersion;
    CalendarDate FirmwareFpgaBuildDate;
    std::wstring FirmwareDriverVersion;
    CalendarDate FirmwareDriverBuildDate;
    std::wstring FirmwareServerVersion;
    CalendarDate FirmwareServerBuildDate;
    CalendarDate CalibrationDate;

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MCommonDeviceProperties& defaults);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;
};

}  // namespace hx
