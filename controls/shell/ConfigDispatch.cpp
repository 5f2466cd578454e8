#include "controls/shell/ConfigDispatch.h"

#include "controls/shell/ControlSupport.h"

namespace hx {
HRESULT ReadStockText(const std::wstring& text, VARIANT* value) {
    *value = Variant(text).detach();
    return S_OK;
}

HRESULT WriteStockText(std::wstring& text, const VARIANT& value) {
    text = TextOf(value.bstrVal);
    return S_OK;
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
