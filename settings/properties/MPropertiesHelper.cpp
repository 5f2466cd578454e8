#include "settings/properties/MPropertiesHelper.h"

#include "core/errors/MErrorLocation.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/records/InGroup.h"
#include "core/records/RecordFields.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MPropertiesHelper", "MPropertiesHelperEx"};
const StreamedClasses kClasses(kNames);

}  // namespace

void MPropertiesHelper::ReadXML(std::wstring xml, bool device_required) {
    MInFilerTaggedXml reader(std::move(xml), kRoot);
    MFilerTaggedPair filer(reader);
    Read(filer, device_required);
}

void MPropertiesHelper::Read(MFilerTaggedPair& filer, bool device_required) {
    if (ReadImpTagged(filer, device_required)) return;
    static MErrorLocation location("MPropertiesHelper", "ReadXML");
    location.Set(this, 34);
    Throw(location, MakeError(location, L"ReadImpTagged"));
}

bool MPropertiesHelper::ReadImpTagged(MFilerTaggedPair& filer, bool device_required) {
    uint32_t version = 0;
    if (!ReadVersion(filer, version, 0u, kVersion) || !m_driver.ReadTagged(filer, kDriver, m_driver)) {
        return false;
    }
    return InOptionalGroup(filer, kDeviceList,
                           [&] { return m_device.ReadTagged(filer, kDevice, m_device) || !device_required; });
}

bool MPropertiesHelper::WriteDocument(MFilerTaggedPair& filer, const MCommonDriverProperties& driver,
                                      const MCommonDeviceProperties& device) {
    return filer.Write(kVersionChild, kVersion) && driver.WriteTagged(filer, kDriver) &&
           InGroup(filer, kDeviceList, [&] { return device.WriteTagged(filer, kDevice); });
}

}  // namespace hx
