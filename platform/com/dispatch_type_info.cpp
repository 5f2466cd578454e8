// The description of an interface as an object: ITypeInfo over the table of its members. What the table does
// not hold is answered as a type library without it would.
#include "platform/com/boundary.h"
#include "platform/com/dispatch_type.h"
#include "platform/com/type_info_base.h"
#include "platform/com/type_library.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace hx {
namespace {

// A FUNCDESC and all that it points at, in one block.
struct MemberDescription {
    explicit MemberDescription(const DispatchMember& member) {
        function.memid = member.id;
        function.lprgelemdescParam = parameters.data();
        function.funckind = FUNC_DISPATCH;
        function.invkind = member.kind;
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<int16_t>(member.count);
        function.elemdescFunc.tdesc.vt = member.result;
        for (UINT i = 0; i < member.count; ++i) {
            const VARTYPE type = member.parameters[i].type;
            targets[i].vt = static_cast<VARTYPE>(type & ~VT_BYREF);
            if (type & VT_ARRAY) {
                elements[i].vt = type & VT_TYPEMASK;
                targets[i].vt = VT_SAFEARRAY;
                targets[i].lptdesc = &elements[i];
            }
            parameters[i].tdesc = targets[i];
            parameters[i].paramdesc.wParamFlags = PARAMFLAG_FIN;
            if (!(type & VT_BYREF)) continue;
            parameters[i].tdesc.vt = VT_PTR;
            parameters[i].tdesc.lptdesc = &targets[i];
        }
    }

    FUNCDESC function{};  // first: its address is the block's
    std::array<ELEMDESC, kMostDispatchParameters> parameters{};
    std::array<TYPEDESC, kMostDispatchParameters> targets{};
    std::array<TYPEDESC, kMostDispatchParameters> elements{};
};

class TypeInfo final : public TypeInfoBase<TypeInfo> {
public:
    explicit TypeInfo(const DispatchType& type) : m_type(type) {}

    HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override {
        if (!attributes) return E_POINTER;
        *attributes = nullptr;
        return AtBoundary([&] {
            auto made = std::make_unique<TYPEATTR>();
            made->guid = m_type.iid;
            made->memidConstructor = made->memidDestructor = MEMBERID_NIL;
            made->cbSizeInstance = made->cbAlignment = sizeof(void*);
            made->typekind = m_type.kind;
            made->cFuncs = static_cast<WORD>(m_type.members.size());
            made->wTypeFlags = m_type.flags;
            made->wMajorVerNum = 1;
            *attributes = made.release();
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** description) override {
        if (!description) return E_POINTER;
        *description = nullptr;
        if (index >= m_type.members.size()) return TYPE_E_ELEMENTNOTFOUND;
        return AtBoundary([&] {
            *description = &(new MemberDescription(m_type.members[index]))->function;
            return S_OK;
        });
    }
    void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* description) override {
        delete reinterpret_cast<MemberDescription*>(description);
    }

    HRESULT STDMETHODCALLTYPE GetNames(MEMBERID member, BSTR* names, UINT room, UINT* count) override {
        if (count) *count = 0;
        if (!names) return E_POINTER;
        std::fill_n(names, room, nullptr);
        if (!count) return E_POINTER;
        const DispatchMember* const row = Find(member);
        if (!row) return TYPE_E_ELEMENTNOTFOUND;
        const UINT named = row->kind == INVOKE_PROPERTYPUT ? 0 : row->count;
        const UINT known = std::min(room, named + 1);
        while (*count < known) {
            const UINT i = *count;
            const HRESULT copied = CopyText(i == 0 ? row->name : row->parameters[i - 1].name, &names[i]);
            if (FAILED(copied)) {
                for (; *count > 0; --*count) SysFreeString(std::exchange(names[*count - 1], nullptr));
                return copied;
            }
            ++*count;
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* text, DWORD* help_context,
                                               BSTR* help_file) override {
        GiveNothing(S_OK, name, text, help_context, help_file);
        const DispatchMember* const row = Find(member);
        if (!row && member != MEMBERID_NIL) return TYPE_E_ELEMENTNOTFOUND;
        return name ? CopyText(row ? row->name : m_type.name, name) : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override {
        return IdsOfNames(m_type, names, count, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(void* instance, MEMBERID member, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
        return InvokeMember(m_type, instance, member, flags, arguments, result, exception, bad_argument);
    }

    HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) override {
        return ContainingLibrary(m_type.iid, library, index);
    }

private:
    const DispatchMember* Find(MEMBERID member) const {
        const auto row = std::ranges::find(m_type.members, member, &DispatchMember::id);
        return row != m_type.members.end() ? &*row : nullptr;
    }

    const DispatchType& m_type;
};

}  // namespace

HRESULT DescribeType(const DispatchType& type, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return AtBoundary([&] {
        *info = Make<TypeInfo>(type).detach();
        return S_OK;
    });
}

}  // namespace hx
