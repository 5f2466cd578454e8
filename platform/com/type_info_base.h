// TypeInfoBase: an ITypeInfo of something that has no members, interfaces and library of its own; what has,
// overrides. It keeps the component library loaded, since the described table lies in it. Any thread.
#pragma once

#include <algorithm>

#include "platform/com/class_table.h"
#include "platform/com/dispatch_type.h"

namespace hx {

// `*copy` is null on failure: E_OUTOFMEMORY.
inline HRESULT CopyText(const wchar_t* text, BSTR* copy) {
    *copy = SysAllocString(text);
    return *copy ? S_OK : E_OUTOFMEMORY;
}

// Gives nothing for what is asked. Outputs may be omitted.
template <class... Outputs>
HRESULT GiveNothing(HRESULT result, Outputs*... outputs) {
    const auto clear = [](auto* output) {
        if (output) *output = {};
    };
    (clear(outputs), ...);
    return result;
}

template <class Self>
class TypeInfoBase : public Implements<Self, FreeThreaded, ITypeInfo> {
public:
    HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT, FUNCDESC** description) override {
        if (!description) return E_POINTER;
        return GiveNothing(TYPE_E_ELEMENTNOTFOUND, description);
    }
    void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC*) override {}
    HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC** description) override {
        return GiveNothing(TYPE_E_ELEMENTNOTFOUND, description);
    }
    void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}
    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR* names, UINT room, UINT* count) override {
        if (count) *count = 0;
        if (!names) return E_POINTER;
        std::fill_n(names, room, nullptr);
        return count ? TYPE_E_ELEMENTNOTFOUND : E_POINTER;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override {
        return IdsOfNames({}, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(void* instance, MEMBERID member, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
        return InvokeMember({}, instance, member, flags, arguments, result, exception, bad_argument);
    }
    HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE* type) override {
        return GiveNothing(TYPE_E_ELEMENTNOTFOUND, type);
    }
    HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT* flags) override {
        return GiveNothing(TYPE_E_ELEMENTNOTFOUND, flags);
    }
    HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo** info) override {
        return GiveNothing(TYPE_E_ELEMENTNOTFOUND, info);
    }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void** object) override {
        return GiveNothing(E_NOTIMPL, object);
    }
    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** compiler) override {
        return GiveNothing(E_NOTIMPL, compiler);
    }
    HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR* library, BSTR* name,
                                          WORD* ordinal) override {
        return GiveNothing(E_NOTIMPL, library, name, ordinal);
    }
    HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, void** address) override {
        return GiveNothing(E_NOTIMPL, address);
    }
    HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR* mops) override { return GiveNothing(E_NOTIMPL, mops); }
    void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) override { delete attributes; }

private:
    ModuleLock m_module_lock;
};

}  // namespace hx
