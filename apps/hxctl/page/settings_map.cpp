#include "apps/hxctl/page/settings_map.h"

#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/settings_object.h"
#include "hxapi/HXApiErrors.h"

namespace hxctl {

SettingsMap::SettingsMap() {
    hx::ComPtr<IXmlBstrSerializable> settings;
    const Answer created = CreateSettings(ScannerMeasurementSettings, settings);
    CheckCall(created.operation, created.result);
    m_settings = settings.as<IUnknown>();
}

HRESULT SettingsMap::GetSettingsObject(ProfileSettingsType type, IUnknown** settings) {
    if (settings == nullptr) return E_POINTER;
    *settings = nullptr;
    return type == ScannerMeasurementSettings ? m_settings.copy_to(settings) : HX_E_NOTFOUND;
}

}  // namespace hxctl
