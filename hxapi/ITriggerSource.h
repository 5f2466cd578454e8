// The trigger frequency limits that a settings object is given. Implemented by measurement settings objects,
// called by the scanner API directly or by name, on the thread that made the object.
#pragma once

#include "platform/com/dispatch.h"

HX_IID(ITriggerSource, "9A4F2D61-3E7B-4C08-B5D2-60F81C9E7A34")
struct ITriggerSource : IDispatch {
    // Keeps a limit as it is given, NaN meaning that there is none; S_OK. [Hz] Neither is checked, neither
    // against the other. They are no part of the object's text. The members' dispatch ids are 3 and 4.
    virtual HRESULT STDMETHODCALLTYPE SetMaximumTriggerFrequency(double frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMinimumTriggerFrequency(double frequency) = 0;
};
