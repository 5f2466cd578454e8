#include "platform/com/class_type_info.h"

#include <memory>

#include "platform/com/boundary.h"
#include "platform/com/loader.h"
#include "platform/com/type_info_base.h"

namespace hx {
namespace {

// The numbers of its interfaces are their indices in the library.
class ClassTypeInfo final : public TypeInfoBase<ClassTypeInfo> {
public:
    ClassTypeInfo(const TypeLibrary& library, size_t index)
        : m_library(library), m_class(library.classes[index]) {}

    HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override {
        if (!attributes) return E_POINTER;
        *attributes = nullptr;
        return AtBoundary([&] {
            auto made = std::make_unique<TYPEATTR>();
            made->guid = m_class.clsid;
            made->memidConstructor = made->memidDestructor = MEMBERID_NIL;
            made->cbAlignment = sizeof(void*);
            made->typekind = TKIND_COCLASS;
            made->cImplTypes = static_cast<WORD>(m_class.interfaces.size());
            made->wTypeFlags = m_class.flags;
            made->wMajorVerNum = m_library.major_version;
            made->wMinorVerNum = m_library.minor_version;
            *attributes = made.release();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID member, BSTR* name, BSTR* text, DWORD* help_context,
                                               BSTR* help_file) override {
        GiveNothing(S_OK, name, text, help_context, help_file);
        if (member != MEMBERID_NIL) return TYPE_E_ELEMENTNOTFOUND;
        return name ? CopyText(m_class.name, name) : S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) override {
        if (!flags) return E_POINTER;
        *flags = 0;
        if (index >= m_class.interfaces.size()) return TYPE_E_ELEMENTNOTFOUND;
        *flags = m_class.interfaces[index].flags;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* type) override {
        if (!type) return E_POINTER;
        *type = 0;
        if (index >= m_class.interfaces.size()) return TYPE_E_ELEMENTNOTFOUND;
        const auto listed = std::ranges::find(m_library.types, m_class.interfaces[index].type);
        if (listed == m_library.types.end()) return TYPE_E_ELEMENTNOTFOUND;
        *type = static_cast<HREFTYPE>(listed - m_library.types.begin());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE type, ITypeInfo** info) override {
        return DescribeAt(m_library, type, info);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return CoCreateInstance(m_class.clsid, outer, CLSCTX_ALL, iid, object);
    }
    HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib** library, UINT* index) override {
        return ContainingLibrary(m_class.clsid, library, index);
    }

private:
    const TypeLibrary& m_library;
    const LibraryClass& m_class;
};

}  // namespace

ComPtr<ITypeInfo> MakeClassTypeInfo(const TypeLibrary& library, size_t index) {
    return Make<ClassTypeInfo>(library, index);
}

}  // namespace hx
