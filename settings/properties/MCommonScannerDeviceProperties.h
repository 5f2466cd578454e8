// What a driver tells of a scanner, beyond what it tells of every device. As its base.
#pragma once

#include "settings/properties/MCommonDeviceProperties.h"
#include "settings/properties/MLaserPlanes.h"
#include "settings/properties/MScanner3DModelTransforms.h"

namespace hx {

class MCommonScannerDeviceProperties : public MCommonDeviceProperties {
public:
    static const RecordType kType;
    // The element of every scanner, behind that of every device.
    static const RecordType kCommonScanner;

    MCommonScannerDeviceProperties();

    // ReferenceToAutoJoint is read only if there are laser planes. The transforms of the 3D model may be
    // absent or unreadable: older drivers do not tell them.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const MCommonDeviceProperties& defaults) override;
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const override;
    void DisablePowered() override { PoweredSupported = false; }

    double QualificationTolerance{};  // mm
    MLaserPlanes Planes;
    Transform4x4 ReferenceToAutoJoint;
    bool Powered{};
    bool PoweredSupported = true;
    MScanner3DModelTransforms Scanner3DModelTransforms;

protected:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MCommonDeviceProperties& defaults);
};

}  // namespace hx
