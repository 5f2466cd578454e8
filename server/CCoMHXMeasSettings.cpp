#include "server/CCoMHXMeasSettings.h"

#include "core/errors/MDiagnosticsRegistry.h"
#include "core/errors/MErrorLocation.h"
#include "core/log/MFlowScope.h"
#include "core/messages/MDiagnosticsAtl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/boundary.h"
#include "server/SettingsText.h"

namespace hx {
namespace {

// The number under which exceptions of measurement settings objects are reported.
constexpr int32_t kExceptionKind = 10;
constexpr const char* kSourceName = "CCoMHXMeasSettings";

// Of ITriggerSource and what derives from it.
template <class I>
constexpr DispatchMember kMembers[] = {
    DispatchMembersOf<I>::template Method<&ITriggerSource::SetMaximumTriggerFrequency>(
        3, L"SetMaximumTriggerFrequency", L"frequency"),
    DispatchMembersOf<I>::template Method<&ITriggerSource::SetMinimumTriggerFrequency>(
        4, L"SetMinimumTriggerFrequency", L"frequency"),
};

// Reports an exception that ends at an entry point, and hands it to the caller with that point's own record.
HRESULT HandOut(const MErrorLocation& location, MException& exception) {
    DiagnosticsRegistry().OnException(location, exception, kExceptionKind);
    exception.Append(MakeCascadeError(location, {}));
    return MDiagnosticsAtl::MExceptionAsErrorinfo(CLSID_CoMHXMeasSettings, exception,
                                                  IID_IXmlBstrSerializable, E_FAIL);
}

}  // namespace

constinit const DispatchType CCoMHXMeasSettings::kDispatchType{L"ICoMHXMeasSettings", IID_ICoMHXMeasSettings,
                                                               kMembers<ICoMHXMeasSettings>};
constinit const DispatchType CCoMHXMeasSettings::kTriggerSourceType{L"ITriggerSource", IID_ITriggerSource,
                                                                    kMembers<ITriggerSource>};

HRESULT CCoMHXMeasSettings::ReadXmlBstr(BSTR xml) {
    const MFlowScope scope("CCoMHXMeasSettings::ReadXmlBstr", kSourceName, 50);
    return AtBoundary([&] {
        static MErrorLocation location(kSourceName, "ReadXmlBstr");
        try {
            return ReadSettingsText(xml, m_settings);
        } catch (MException& exception) {
            location.Set(this, 63);
            return HandOut(location, exception);
        }
    });
}

HRESULT CCoMHXMeasSettings::WriteXmlBstr(BSTR* xml) {
    const MFlowScope scope("CCoMHXMeasSettings::WriteXmlBstr", kSourceName, 75);
    if (xml == nullptr) return E_INVALIDARG;
    return AtBoundary([&] {
        static MErrorLocation location(kSourceName, "WriteXmlBstr");
        try {
            return WriteSettingsText(m_settings, xml);
        } catch (MException& exception) {
            location.Set(this, 91);
            return HandOut(location, exception);
        }
    });
}

HRESULT CCoMHXMeasSettings::SetMaximumTriggerFrequency(double frequency) {
    m_maximum_trigger_frequency = frequency;
    return S_OK;
}

HRESULT CCoMHXMeasSettings::SetMinimumTriggerFrequency(double frequency) {
    m_minimum_trigger_frequency = frequency;
    return S_OK;
}

HRESULT CCoMHXMeasSettings::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID_IXmlBstrSerializable || iid == IID_ITriggerSource ? S_OK : S_FALSE;
}

HRESULT CCoMHXMeasSettings::GetPointer(void** pointer) {
    if (pointer == nullptr) return E_POINTER;
    *pointer = this;
    return S_OK;
}

}  // namespace hx
