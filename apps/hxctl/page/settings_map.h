// A host's settings objects: measurement settings alone, fresh ones.
#pragma once

#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/com/comptr.h"
#include "platform/com/implements.h"

namespace hxctl {

class SettingsMap final : public hx::Implements<SettingsMap, hx::SingleThreaded, IHXSettingsObjectMap> {
public:
    // Throws a FailedCall if there is no such object to be had.
    SettingsMap();

    HRESULT STDMETHODCALLTYPE GetSettingsObject(ProfileSettingsType type, IUnknown** settings) override;

private:
    hx::ComPtr<IUnknown> m_settings;
};

}  // namespace hxctl
