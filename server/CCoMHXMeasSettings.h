// The measurement settings object: one record, its way in and out as tagged XML, and the trigger frequency
// limits. Made by the settings factory or by its class factory; used on the thread that made it. Exceptions
// that end in it leave error information.
#pragma once

#include <limits>

#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IXmlBstrSerializable.h"
#include "platform/com/class_table.h"
#include "platform/com/errorinfo.h"
#include "platform/com/implements_dispatch.h"
#include "settings/device/MScanningMeasurementFacetSettings.h"

namespace hx {

class MErrorLocation;

class CCoMHXMeasSettings final
    : public ImplementsDispatch<CCoMHXMeasSettings, SingleThreaded, ICoMHXMeasSettings, IXmlBstrSerializable,
                                ITriggerSource, IDispatch, ISupportErrorInfo, IGetPointer> {
public:
    static const DispatchType kDispatchType;
    static const DispatchType kTriggerSourceType;

    HRESULT STDMETHODCALLTYPE ReadXmlBstr(BSTR xml) override;
    HRESULT STDMETHODCALLTYPE WriteXmlBstr(BSTR* xml) override;
    HRESULT STDMETHODCALLTYPE SetMaximumTriggerFrequency(double frequency) override;
    HRESULT STDMETHODCALLTYPE SetMinimumTriggerFrequency(double frequency) override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
    // Of this class.
    HRESULT STDMETHODCALLTYPE GetPointer(void** pointer) override;

    // For code of the same process, which comes by GetPointer.
    const MScanningMeasurementFacetSettings& Settings() const { return m_settings; }
    // NaN: not given.
    double MaximumTriggerFrequency() const { return m_maximum_trigger_frequency; }
    double MinimumTriggerFrequency() const { return m_minimum_trigger_frequency; }

private:
    ModuleLock m_module_lock;
    MScanningMeasurementFacetSettings m_settings;
    double m_maximum_trigger_frequency = std::numeric_limits<double>::quiet_NaN();
    double m_minimum_trigger_frequency = std::numeric_limits<double>::quiet_NaN();
};

}  // namespace hx
