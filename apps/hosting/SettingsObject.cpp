#include "apps/hosting/SettingsObject.h"

#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/loader.h"

namespace hosting {

CalledLast CreateSettings(int type, hx::ComPtr<IXmlBstrSerializable>& settings) {
    CLSID clsid;
    CalledLast answer{"CLSIDFromProgID", CLSIDFromProgID(kProgIdHXSettingsFactory, &clsid)};
    if (FAILED(answer.result)) return answer;
    hx::ComPtr<IProfileSettingsFactory> factory;
    answer = {"CoCreateInstance",
              CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IProfileSettingsFactory>(),
                               factory.put_void())};
    if (FAILED(answer.result)) return answer;
    return {"CreateSettingsObject",
            factory->CreateSettingsObject(static_cast<ProfileSettingsType>(type), settings.put())};
}

}  // namespace hosting
