// A host's settings objects by their kind. Implemented by the host, kept by the pages; on the thread of the
// user interface.
#pragma once

#include "hxapi/ProfileSettingsType.h"
#include "platform/com/unknown.h"

HX_IID(IHXSettingsObjectMap, "7A05C9E2-6D14-4B83-9F27-B8E3D1460C5A")
struct IHXSettingsObjectMap : IUnknown {
    // The settings object of that kind, [caller owns]; null on failure: HX_E_NOTFOUND if there is none,
    // E_POINTER.
    virtual HRESULT STDMETHODCALLTYPE GetSettingsObject(ProfileSettingsType type, IUnknown** settings) = 0;
};
