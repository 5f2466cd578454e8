#include "controls/shell/ConfigDispatch.h"

#include <algorithm>

#include "controls/shell/ControlSupport.h"

namespace hx {
namespace {

VARTYPE TypeTaken(DISPID member, VARTYPE given) {
    constexpr VARTYPE kArrays = VT_BYREF | VT_ARRAY;
    if (member == DISPID_HXCONFIG_SAVE && given == (VT_BYREF | VT_BOOL)) return VT_BYREF | VT_I4;
    if (member == DISPID_HXCONFIG_INITIALISE && (given & kArrays) == kArrays) return kArrays | VT_VARIANT;
    return given;
}

}  // namespace

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

ConfigArguments::ConfigArguments(DISPID member, DISPPARAMS* given) : m_given(given) {
    if (!given) return;
    m_arguments = *given;
    if (!given->rgvarg || given->cArgs > m_values.size()) return;
    std::transform(given->rgvarg, given->rgvarg + given->cArgs, m_values.begin(), [&](VARIANT value) {
        value.vt = TypeTaken(member, value.vt);
        return value;
    });
    m_arguments.rgvarg = m_values.data();
}

}  // namespace hx
