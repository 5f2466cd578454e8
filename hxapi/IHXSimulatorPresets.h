// What a simulated scanner API has stored, for whoever wants to see it without using the API. Implemented by
// the object that is an IHXSimulator. Any thread.
#pragma once

#include "platform/com/bstr.h"
#include "platform/com/unknown.h"

HX_IID(IHXSimulatorPresets, "4783A544-2D7A-4436-B3AF-05F7CA1FA74E")
struct IHXSimulatorPresets : IUnknown {
    // The presets of that owner as a JSON object {"selected", "presets": [{"name", "displayName",
    // "values"}]}, [caller owns]; neither logged nor made to fail, and nothing is told that an API tells
    // once. Null on failure: E_POINTER, else as the store fails.
    virtual HRESULT STDMETHODCALLTYPE ReadPresets(BSTR owner, BSTR* json) = 0;
};
