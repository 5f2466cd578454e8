// The simulated scanner API, and the hands on its cable. Any thread.
#pragma once

#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXLocale.h"
#include "hxapi/IHXSimulator.h"
#include "hxapi/IHXSimulatorPresets.h"
#include "simulator/api/EventPoint.h"

namespace hx::simulator {

class ApiObject final : public Implements<ApiObject, FreeThreaded, IHXApi, IHXApiInternal, IHXLocale,
                                          IHXSimulator, IHXSimulatorPresets, IConnectionPointContainer> {
public:
    ApiObject();
    ~ApiObject() override;

    // The newest that lives; null if none does.
    static ComPtr<ApiObject> Newest();
    void HangUp() { m_simulator->Connection()->HangUp(); }

    HRESULT STDMETHODCALLTYPE GetConnectionState(int32_t* state, IErrorInfo** detail) override;
    HRESULT STDMETHODCALLTYPE Resume(IErrorInfo** detail) override;
    HRESULT STDMETHODCALLTYPE GetDeviceManager(IDeviceManager** manager, IErrorInfo** detail) override;
    HRESULT STDMETHODCALLTYPE GetCurrentProfile(IHXProfile** profile, IErrorInfo** detail) override;
    HRESULT STDMETHODCALLTYPE CreateCalibrationHandle(BSTR device_internal_name, REFIID iid,
                                                      IUnknown** object, IErrorInfo** detail) override;
    HRESULT STDMETHODCALLTYPE GetLocale(BSTR* locale) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    HRESULT STDMETHODCALLTYPE GetModels(SAFEARRAY** models) override;
    HRESULT STDMETHODCALLTYPE SetModel(BSTR model) override;
    HRESULT STDMETHODCALLTYPE GetModel(BSTR* model) override;
    HRESULT STDMETHODCALLTYPE GetDevice(BSTR* driver_internal_name, BSTR* device_internal_name) override;
    HRESULT STDMETHODCALLTYPE SetConnectionState(int32_t state, BOOL raise) override;
    HRESULT STDMETHODCALLTYPE Connect() override;
    HRESULT STDMETHODCALLTYPE Disconnect() override;
    HRESULT STDMETHODCALLTYPE WaitForEvents() override;
    HRESULT STDMETHODCALLTYPE SetLocale(BSTR locale) override;
    HRESULT STDMETHODCALLTYPE GetSurfaces(SAFEARRAY** surfaces) override;
    HRESULT STDMETHODCALLTYPE SetSurface(BSTR surface) override;
    HRESULT STDMETHODCALLTYPE SetPresetsFolder(BSTR folder) override;
    HRESULT STDMETHODCALLTYPE ResetPresets(BSTR owner) override;
    HRESULT STDMETHODCALLTYPE InjectFault(const HXSimulatorFault* fault) override;
    HRESULT STDMETHODCALLTYPE ClearFaults() override;
    HRESULT STDMETHODCALLTYPE GetOperations(SAFEARRAY** operations) override;
    HRESULT STDMETHODCALLTYPE TakeCalls(BSTR* json) override;
    HRESULT STDMETHODCALLTYPE LogCall(BSTR on, BSTR operation, BSTR arguments) override;
    HRESULT STDMETHODCALLTYPE SetProperties(BSTR xml) override;

    HRESULT STDMETHODCALLTYPE ReadPresets(BSTR owner, BSTR* json) override;

private:
    ModuleLock m_module_lock;
    const ComPtr<ConnectionPoint> m_listeners;
    const std::shared_ptr<Simulator> m_simulator;
    const Gate m_gate;
    const ComPtr<EventPoint> m_events;
    ApiObject* m_older = nullptr;  // the one made before, of those that live
};

}  // namespace hx::simulator
