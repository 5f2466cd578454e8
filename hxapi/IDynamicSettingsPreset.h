// A dynamic settings preset (a profile): the values that an operator may change between scans, and a name. A
// value of its own: changing it changes neither the scanner nor what is stored. Implemented by the scanner
// API, made by a calibration handle; called on the thread of the user interface.
//
// Getters leave their argument unchanged on failure: E_POINTER for null. Setters refuse with E_INVALIDARG
// what is no number or outside the range that is given here, and the value then stays.
#pragma once

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

HX_IID(IDynamicSettingsPreset, "41F8D3B6-C05A-4972-8E1B-9D67A2E4503C")
struct IDynamicSettingsPreset : IUnknown {
    // [caller owns *name]; "" for a new preset.
    virtual HRESULT STDMETHODCALLTYPE GetName(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetName(BSTR name) = 0;
    // Percent of the maximum, 0 to 100.
    virtual HRESULT STDMETHODCALLTYPE GetLaserPower(double* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetLaserPower(double percent) = 0;
    // Microseconds, above 0.
    virtual HRESULT STDMETHODCALLTYPE GetExposureTime(double* exposure_us) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetExposureTime(double exposure_us) = 0;
    // Of the imager; whether the scanner has it shows when the preset is activated. 1 to 65535.
    virtual HRESULT STDMETHODCALLTYPE GetAnalogImagerGain(uint32_t* gain) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetAnalogImagerGain(uint32_t gain) = 0;
    // The scanner's automatic control of the laser power.
    virtual HRESULT STDMETHODCALLTYPE IsDLPCEnabled(BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetDLPCEnabled(BOOL enabled) = 0;
    // The filter of points at edges of the surface.
    virtual HRESULT STDMETHODCALLTYPE Get3DEdgeFilterEnabled(BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE Set3DEdgeFilterEnabled(BOOL enabled) = 0;
    // The weakest signal that counts as a point [% of the imager's range], 0 to 100.
    virtual HRESULT STDMETHODCALLTYPE GetSignalThreshold(uint32_t* percent) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSignalThreshold(uint32_t percent) = 0;
    // How much is cut away beside edges, 0 to 100.
    virtual HRESULT STDMETHODCALLTYPE GetEdgeFilterValue(double* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetEdgeFilterValue(double value) = 0;
    // Of a surface that is still measured, against the laser beam [degrees], 0 to 90.
    virtual HRESULT STDMETHODCALLTYPE GetMaxInclination(double* degrees) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMaxInclination(double degrees) = 0;
    // The filter of reflections.
    virtual HRESULT STDMETHODCALLTYPE IsRFEnabled(BOOL* enabled) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetRFEnabled(BOOL enabled) = 0;
};
