// ImplementsDispatch: Implements for an object that is called by name, too. Its first interface derives from
// IDispatch and is the one that its table describes:
//     class Thing final : public hx::ImplementsDispatch<Thing, hx::SingleThreaded, IThing, IDispatch> {
//         static const hx::DispatchType kDispatchType;
// Locales make no difference. Called on the object's own thread.
#pragma once

#include "platform/com/dispatch_type.h"
#include "platform/com/implements.h"

namespace hx {

template <class Self, class Threading, class First, class... Others>
class ImplementsDispatch : public Implements<Self, Threading, First, Others...> {
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
        if (!info) return E_POINTER;
        *info = nullptr;
        return index == 0 ? DescribeType(Self::kDispatchType, info) : DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        if (!(reserved == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        return IdsOfNames(Self::kDispatchType, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
        if (!(reserved == IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        return InvokeMember(Self::kDispatchType, static_cast<First*>(this), member, flags, arguments, result,
                            exception, bad_argument);
    }
};

}  // namespace hx
