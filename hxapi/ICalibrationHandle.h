// The way to one scanner: to hold it, to drive it, and to its stored presets. Made by the scanner API for a
// device; called by the pages on the thread of the user interface. Several handles may lead to one scanner.
//
// A handle outlives the connection: it is good again when the scanner is back. In any state it can be
// released, can unregister an observer, answers queries, and knows the presets; DisableScanner has nothing to
// do then. Initialising, observing and detecting are refused with HX_E_NOTACQUIRED as long as the handle does
// not hold the scanner, activation only if it never did: on a handle that was released it is without effect.
// A handle holds the scanner while that is away, too: initialising and observing then succeed, and the
// tracking goes on, or begins, once the scanner is back.
//
// The object answers ISupportErrorInfo: every failure leaves error information for this interface on the
// calling thread, whose description may be a chain document. Device names are as for
// IHXApiInternal::CreateCalibrationHandle. Out-parameters are null, or unchanged if they are numbers, on
// failure; E_POINTER for a null one.
#pragma once

#include "hxapi/IDynamicSettingsPreset.h"
#include "hxapi/MGlobalScanningSettings.h"
#include "platform/com/safearray.h"

// The device internal name under which the API keeps presets is their owner.
HX_IID(ICalibrationHandle, "8C52A4E7-B169-4D3F-90D8-E5A73C0F1B64")
struct ICalibrationHandle : IUnknown {
    // Takes the scanner for this handle, and gives it back. HX_E_NOTCONNECTED; both may be repeated.
    virtual HRESULT STDMETHODCALLTYPE AcquireHandle() = 0;
    virtual HRESULT STDMETHODCALLTYPE ReleaseHandle() = 0;
    // Makes an acquired scanner ready and lets it track. `mode` and `options` are 0, `enable` is 1: other
    // numbers are the API's own. DisableScanner ends the tracking.
    virtual HRESULT STDMETHODCALLTYPE InitialiseScanner(int32_t mode, int32_t options, int32_t enable) = 0;
    virtual HRESULT STDMETHODCALLTYPE DisableScanner() = 0;
    // `observer` receives the tracking cycles from now on, instead of the one before, if it is an
    // ITrackingCycleObserver; a reference is taken. Null: the observer that this handle registered does not
    // any more.
    virtual HRESULT STDMETHODCALLTYPE RegisterTrackingCycleObserver(IUnknown* observer) = 0;

    // The scanner works with the preset's values from now on. [caller keeps preset] E_INVALIDARG for values
    // that the scanner does not have.
    virtual HRESULT STDMETHODCALLTYPE ActivateDynamicSettings(IDynamicSettingsPreset* preset) = 0;
    // `settings` is a VT_UI8 whose value is the address of an MGlobalScanningSettings, which is read during
    // the call. E_INVALIDARG for anything else and for what the scanner does not have.
    virtual HRESULT STDMETHODCALLTYPE ActivateGlobalScanningSettings(VARIANT settings) = 0;
    // The device's, written to the record that `settings` leads to, as above.
    virtual HRESULT STDMETHODCALLTYPE GetGlobalScanningSettings(BSTR device_internal_name,
                                                                VARIANT settings) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFovManagementConfig(FovManagementConfig* config) = 0;
    // 1 if the measuring speed can be reduced, else 0.
    virtual HRESULT STDMETHODCALLTYPE GetFrequencyReductionSupport(int32_t* supported) = 0;

    // The gains that the imager has, as decimal numbers: an array of VT_BSTR, [caller owns].
    virtual HRESULT STDMETHODCALLTYPE GetSupportedAnalogImagerGains(SAFEARRAY** gains) = 0;
    // The longest exposure of the device [us]. HX_E_NOTFOUND.
    virtual HRESULT STDMETHODCALLTYPE GetMaxExposureTime(BSTR device_internal_name,
                                                         uint32_t* exposure_us) = 0;
    // Laser lines per second at the present settings [Hz].
    virtual HRESULT STDMETHODCALLTYPE GetFrameRate(double* frame_rate_hz) = 0;
    // The present exposure in rows of the imager, whose shutter rolls.
    virtual HRESULT STDMETHODCALLTYPE GetExposureTimeInRows(int32_t* rows) = 0;
    // Look for the value with the best signal on what lies in front of the scanner, at the other settings as
    // they are. They take their time. [us], [% of the maximum] HX_E_NOTCONNECTED; E_FAIL if nothing can be
    // seen at any value.
    virtual HRESULT STDMETHODCALLTYPE DetectExposureTime(int16_t* exposure_us) = 0;
    virtual HRESULT STDMETHODCALLTYPE DetectLaserPower(double* percent) = 0;

    // The owner's presets in their order: two arrays of VT_BSTR of the same length, [caller owns]. Fails once
    // with error information of a code that is told below, after something had to be done to the owner's
    // presets that the operator should know.
    virtual HRESULT STDMETHODCALLTYPE EnumerateDynamicSettingsPresets(BSTR owner, SAFEARRAY** names,
                                                                      SAFEARRAY** display_names) = 0;
    // The name of the owner's selected preset, [caller owns]; "" for none.
    virtual HRESULT STDMETHODCALLTYPE GetSelectedDynamicSettingsPreset(BSTR owner, BSTR* name) = 0;
    // A copy of the stored preset, [caller owns]. HX_E_NOTFOUND.
    virtual HRESULT STDMETHODCALLTYPE GetDynamicSettingsPreset(BSTR owner, BSTR name,
                                                               IDynamicSettingsPreset** preset) = 0;
    // Replaces the owner's presets: an array of names (VT_BSTR), one of presets (VT_UNKNOWN), and the
    // selected name, null or empty for none. Presets whose name begins with "@" stay. All or nothing:
    // E_INVALIDARG for arrays that do not fit, E_ACCESSDENIED or E_FAIL if the list cannot be stored.
    virtual HRESULT STDMETHODCALLTYPE SaveDynamicSettingsPresets(BSTR owner, SAFEARRAY* names,
                                                                 SAFEARRAY* presets, BSTR selected) = 0;
    // A new preset, valid and without a name, [caller owns].
    virtual HRESULT STDMETHODCALLTYPE CreateDynamicSettingsPreset(IDynamicSettingsPreset** preset) = 0;

    // The caller will not drive the scanner through this handle any more. May be repeated; other users of the
    // handle are not affected, and releasing it afterwards succeeds.
    virtual HRESULT STDMETHODCALLTYPE CloseHandle() = 0;
};

// The codes that the first record of such error information has.
inline constexpr wchar_t
    kHXPresetsCustomRestored[] =  // none fitted the scanner; the user's came from the backup
    L"IProperties.EnumerateDynamicSettingsPresets:NoScannerModelPresetsBackedUpCustomRestored";
inline constexpr wchar_t kHXPresetsCustomGenerated[] =  // none fitted the scanner, and there was no backup
    L"IProperties.EnumerateDynamicSettingsPresets:NoScannerModelPresetsNewCustomGenerated";
inline constexpr wchar_t kHXPresetsUnknownVersion[] =  // one was left out, since its version is not known
    L"IProperties.EnumerateDynamicSettingsPresets:AnUnknownProfileVersionWasFound";
