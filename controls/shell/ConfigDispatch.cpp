#include "controls/shell/ConfigDispatch.h"

#include "controls/shell/ControlSupport.h"

namespace hx {

constinit const DispatchType kConfigCtrlType = ConfigDispatch<void>::Type<true>();

HRESULT ReadStockText(const std::wstring& text, VARIANT* value) {
    *value = Variant(text).detach();
    return S_OK;
}

HRESULT WriteStockText(std::wstring& text, const VARIANT& value) {
    text = TextOf(value.bstrVal);
    return S_OK;
}

HRESULT ReadProperty(void* object, DISPID id, VARIANT* value) {
    DISPPARAMS none{};
    return static_cast<DHXConfigCtrl*>(object)->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, value,
                                                       nullptr, nullptr);
}

HRESULT WriteProperty(void* object, DISPID id, const VARIANT& value) {
    VARIANT argument = value;
    DISPID name = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&argument, &name, 1, 1};
    return static_cast<DHXConfigCtrl*>(object)->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &arguments,
                                                       nullptr, nullptr, nullptr);
}

HRESULT CallInitialise(void* object, const VARIANT* arguments, VARIANT* /*result*/) {
    try {
        return static_cast<DHXConfigCtrl*>(object)->Initialise(arguments[0].bstrVal, arguments[1].bstrVal,
                                                               arguments[2].bstrVal,
                                                               static_cast<SAFEARRAY**>(arguments[3].byref));
    } catch (const MException& exception) {
        return LeaveErrorInformation(exception);
    }
}

}  // namespace hx
