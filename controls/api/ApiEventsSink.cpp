#include "controls/api/ApiEventsSink.h"

#include <algorithm>

namespace hx {
namespace {

constexpr ApiEvent kEvents[] = {
    {DISPID_HXCONNECTIONSTATECHANGED, CC_STDCALL, VT_I4, 1, VT_I4},
};

// The one argument, as the event has it.
HRESULT TakeArgument(const ApiEvent& event, const DISPPARAMS* given, Variant& argument, UINT* bad_argument) {
    if (given == nullptr || given->cArgs != event.parameter_count || given->rgvarg == nullptr) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (given->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    const HRESULT converted = VariantChangeType(argument.put(), &given->rgvarg[0], 0, event.parameter);
    if (FAILED(converted) && bad_argument != nullptr) *bad_argument = 0;
    return converted;
}

}  // namespace

const ApiEvent* FindApiEvent(REFIID iid, DISPID number) {
    if (!(iid == uuid_of<IHXApiEvents>())) return nullptr;
    const auto* const found = std::ranges::find(kEvents, number, &ApiEvent::number);
    return found != std::end(kEvents) ? found : nullptr;
}

HRESULT ApiEventsSink::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ApiEventsSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT ApiEventsSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) {
    if (ids == nullptr) return E_POINTER;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    return DISP_E_UNKNOWNNAME;
}

HRESULT ApiEventsSink::Invoke(DISPID member, REFIID reserved, LCID, WORD, DISPPARAMS* arguments,
                              VARIANT* result, EXCEPINFO*, UINT* bad_argument) {
    if (result != nullptr) VariantInit(result);
    const ApiEvent* const event = FindApiEvent(uuid_of<IHXApiEvents>(), member);
    if (event == nullptr) return S_OK;
    if (!(reserved == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    return AtBoundary([&] {
        Variant state;
        const HRESULT taken = TakeArgument(*event, arguments, state, bad_argument);
        if (FAILED(taken)) return taken;
        PostWindowMessage(m_window, {WM_HX_CONNECTION_STATE, static_cast<uint64_t>(state->lVal), 0});
        if (result != nullptr) *result = Variant(int32_t{0}).detach();
        return S_OK;
    });
}

}  // namespace hx
