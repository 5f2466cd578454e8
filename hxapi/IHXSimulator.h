// What a simulated scanner API has beyond a real one: a person's hands on cable, switch and surface.
// Implemented by the class "Orvel.HXSimulator.HXApi.1", whose objects are each a scanner API (IHXApi and all
// that belongs to it) with one scanner; used by tests, tools and the desktop host. Any thread.
//
// All simulators of a process share one log of calls and one list of faults, with the recorder and the
// initialiser. Texts are [caller owns] both ways; out-parameters are null on failure, E_POINTER for a null
// one.
#pragma once

#include "platform/com/safearray.h"
#include "platform/com/unknown.h"

// A failure on demand. Null texts are none.
struct HXSimulatorFault {
    BSTR operation;     // of an interface of the API, as "AcquireHandle"; or of the recorder
    HRESULT result;     // what it answers with; of the recorder any number but 0. S_OK, with a delay or
                        // hang_up: what it does anyway, after these
    int32_t times;      // of how many calls; negative: all from now on
    int32_t after;      // how many calls pass before
    uint32_t delay_ms;  // how much longer each of these calls takes
    BOOL hang_up;       // the connection is lost while the call runs
    BSTR chain_code;    // error information with a chain of one record of that code
    BSTR text;          // error information, or detail, with that text; with a code: the message of its chain
    BSTR preset;        // only on the preset objects of that name; for operations of those alone
};

HX_IID(IHXSimulator, "6F19C8B4-E25D-4A70-93FB-08D7A1E5C362")
struct IHXSimulator : IUnknown {
    // The names of the models, as VT_BSTR.
    virtual HRESULT STDMETHODCALLTYPE GetModels(SAFEARRAY** models) = 0;
    // Puts a scanner of that model, in any case, in the place of the one before, while nothing is connected
    // (E_UNEXPECTED). HX_E_NOTFOUND. A new simulator has the first model.
    virtual HRESULT STDMETHODCALLTYPE SetModel(BSTR model) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetModel(BSTR* model) = 0;
    // The internal names of its driver and device.
    virtual HRESULT STDMETHODCALLTYPE GetDevice(BSTR* driver_internal_name, BSTR* device_internal_name) = 0;

    // The state becomes that number, whatever it is, and nothing follows from it. With `raise` the listeners
    // are told, on a thread of the simulator's.
    virtual HRESULT STDMETHODCALLTYPE SetConnectionState(int32_t state, BOOL raise) = 0;
    // As a cable does: 0, 2, 1 and 1, 0, each told to the listeners as it comes; the first returns at once.
    virtual HRESULT STDMETHODCALLTYPE Connect() = 0;
    virtual HRESULT STDMETHODCALLTYPE Disconnect() = 0;
    // Waits until the listeners have been told of every state so far, and a Connect has arrived at 1.
    virtual HRESULT STDMETHODCALLTYPE WaitForEvents() = 0;

    // The language of the API, "en-US" in the beginning.
    virtual HRESULT STDMETHODCALLTYPE SetLocale(BSTR locale) = 0;
    // What lies in front of the scanner: one of GetSurfaces. HX_E_NOTFOUND.
    virtual HRESULT STDMETHODCALLTYPE GetSurfaces(SAFEARRAY** surfaces) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSurface(BSTR surface) = 0;
    // Where presets are kept; null for the usual folder, below the data of all users.
    virtual HRESULT STDMETHODCALLTYPE SetPresetsFolder(BSTR folder) = 0;
    // The owner's presets become those that the scanner was delivered with; the user's own are archived
    // before.
    virtual HRESULT STDMETHODCALLTYPE ResetPresets(BSTR owner) = 0;

    // HX_E_NOTFOUND for an operation that does not exist; E_INVALIDARG for a result that is no failure, but
    // for S_OK with a delay or hang_up, and for a preset with an operation that is not of
    // IDynamicSettingsPreset. The fault injected first is used up first.
    virtual HRESULT STDMETHODCALLTYPE InjectFault(const HXSimulatorFault* fault) = 0;
    virtual HRESULT STDMETHODCALLTYPE ClearFaults() = 0;
    // The operations that can fail, as VT_BSTR "Interface.Operation".
    virtual HRESULT STDMETHODCALLTYPE GetOperations(SAFEARRAY** operations) = 0;

    // The calls since the last TakeCalls, oldest first: a JSON array of {"on","op","args","result"}. An array
    // among the arguments that has more than 100 elements is {"count","first"}, the latter an array of 100.
    // The log holds the last million calls, and no more than 64 MB of UTF-8; how many were lost before is
    // told by a first entry "on":"log","op":"lost".
    virtual HRESULT STDMETHODCALLTYPE TakeCalls(BSTR* json) = 0;
    // Enters a call that the simulator does not see by itself, as that of a preview. `arguments` is a JSON
    // array.
    virtual HRESULT STDMETHODCALLTYPE LogCall(BSTR on, BSTR operation, BSTR arguments) = 0;

    // What the driver reports as its properties from now on, as it is and whatever the model: it need not be
    // a document at all. Null: again the model's own.
    virtual HRESULT STDMETHODCALLTYPE SetProperties(BSTR xml) = 0;
};
