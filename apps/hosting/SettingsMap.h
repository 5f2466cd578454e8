// A host's settings objects: measurement settings alone, fresh ones. On the thread of the user interface.
#pragma once

#include "apps/hosting/SettingsObject.h"
#include "hxapi/IHXSettingsObjectMap.h"
#include "platform/com/implements.h"

namespace hosting {

class SettingsMap final : public hx::Implements<SettingsMap, hx::SingleThreaded, IHXSettingsObjectMap> {
public:
    // Null: a map without anything.
    explicit SettingsMap(hx::ComPtr<IUnknown> settings) : m_settings(std::move(settings)) {}

    HRESULT STDMETHODCALLTYPE GetSettingsObject(ProfileSettingsType type, IUnknown** settings) override;

private:
    const hx::ComPtr<IUnknown> m_settings;
};

// `map` is null on failure.
CalledLast MakeSettingsMap(hx::ComPtr<IHXSettingsObjectMap>& map);

}  // namespace hosting
