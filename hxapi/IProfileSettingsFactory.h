// Makes settings objects for the scanner API's profiles. Implemented by the class
// "Orvel.HXScannerCtrls.HXSettingsFactory.1"; may be called on any thread.
#pragma once

#include "hxapi/IXmlBstrSerializable.h"
#include "hxapi/ProfileSettingsType.h"

HX_IID(IProfileSettingsFactory, "3A9D52E7-7B14-4C86-B0F8-51D6E2A9C340")
struct IProfileSettingsFactory : IUnknown {
    // Gives a new settings object with default state. [caller owns *settings] E_INVALIDARG for a kind that is
    // not served, and `*settings` is then unchanged; E_POINTER for a null argument; E_OUTOFMEMORY.
    virtual HRESULT STDMETHODCALLTYPE CreateSettingsObject(ProfileSettingsType type,
                                                           IXmlBstrSerializable** settings) = 0;
};
