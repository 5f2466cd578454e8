#include "apps/hosting/SettingsMap.h"

#include "hxapi/HXApiErrors.h"

namespace hosting {

HRESULT SettingsMap::GetSettingsObject(ProfileSettingsType type, IUnknown** settings) {
    if (settings == nullptr) return E_POINTER;
    *settings = nullptr;
    return type == ScannerMeasurementSettings && m_settings ? m_settings.copy_to(settings) : HX_E_NOTFOUND;
}

CalledLast MakeSettingsMap(hx::ComPtr<IHXSettingsObjectMap>& map) {
    map.reset();
    hx::ComPtr<IXmlBstrSerializable> settings;
    const CalledLast created = CreateSettings(ScannerMeasurementSettings, settings);
    if (SUCCEEDED(created.result))
        map = hx::Make<SettingsMap>(settings.as<IUnknown>()).as<IHXSettingsObjectMap>();
    return created;
}

}  // namespace hosting
