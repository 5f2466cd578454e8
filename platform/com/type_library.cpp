#include "platform/com/type_library.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "platform/com/boundary.h"
#include "platform/com/class_type_info.h"
#include "platform/com/type_info_base.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

// Set while the component library is loaded, and read from then on. Without a destructor: descriptions may
// outlive every static object of the library at exit.
constinit const TypeLibrary* g_library = nullptr;

UINT CountOf(const TypeLibrary& library) {
    return static_cast<UINT>(library.types.size() + library.classes.size());
}
const wchar_t* NameOf(const TypeLibrary& library, UINT index) {
    const size_t types = library.types.size();
    return index < types ? library.types[index]->name : library.classes[index - types].name;
}
const GUID& GuidOf(const TypeLibrary& library, UINT index) {
    const size_t types = library.types.size();
    return index < types ? library.types[index]->iid : library.classes[index - types].clsid;
}

std::optional<UINT> IndexOf(const TypeLibrary& library, REFGUID guid) {
    for (UINT i = 0; i < CountOf(library); ++i) {
        if (GuidOf(library, i) == guid) return i;
    }
    return std::nullopt;
}

// Where a name occurs.
struct Occurrence {
    UINT index;
    MEMBERID member;
    std::wstring_view name;
};

// A type stands for itself before its members.
std::optional<Occurrence> FindIn(const TypeLibrary& library, UINT index, std::wstring_view name) {
    const wchar_t* const own = NameOf(library, index);
    if (EqualsWithoutCase(own, name)) return Occurrence{index, MEMBERID_NIL, own};
    if (index >= library.types.size()) return std::nullopt;
    for (const DispatchMember& member : library.types[index]->members) {
        if (EqualsWithoutCase(member.name, name)) return Occurrence{index, member.id, member.name};
    }
    return std::nullopt;
}
std::vector<Occurrence> OccurrencesOf(const TypeLibrary& library, std::wstring_view name, size_t most) {
    std::vector<Occurrence> found;
    for (UINT i = 0; i < CountOf(library) && found.size() < most; ++i) {
        if (const auto occurrence = FindIn(library, i, name)) found.push_back(*occurrence);
    }
    return found;
}

class TypeLib final : public Implements<TypeLib, FreeThreaded, ITypeLib> {
public:
    explicit TypeLib(const TypeLibrary& library) : m_library(library) {}

    UINT STDMETHODCALLTYPE GetTypeInfoCount() override { return CountOf(m_library); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** info) override {
        return DescribeAt(m_library, index, info);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT index, TYPEKIND* kind) override {
        if (!kind) return E_POINTER;
        *kind = {};
        if (index >= CountOf(m_library)) return TYPE_E_ELEMENTNOTFOUND;
        *kind = index < m_library.types.size() ? m_library.types[index]->kind : TKIND_COCLASS;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** info) override {
        return DescribeAt(m_library, IndexOf(m_library, guid).value_or(CountOf(m_library)), info);
    }

    HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR** attributes) override {
        if (!attributes) return E_POINTER;
        *attributes = nullptr;
        return AtBoundary([&] {
            *attributes = new TLIBATTR{m_library.libid,         0, SYS_WIN64, m_library.major_version,
                                       m_library.minor_version, 0};
            return S_OK;
        });
    }
    void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR* attributes) override { delete attributes; }
    HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp** compiler) override {
        return GiveNothing(E_NOTIMPL, compiler);
    }

    HRESULT STDMETHODCALLTYPE GetDocumentation(INT index, BSTR* name, BSTR* text, DWORD* help_context,
                                               BSTR* help_file) override {
        GiveNothing(S_OK, name, text, help_context, help_file);
        const bool is_library = index == -1;
        const auto listed = static_cast<UINT>(index);
        if (!is_library && listed >= CountOf(m_library)) return TYPE_E_ELEMENTNOTFOUND;
        if (name) {
            const HRESULT copied = CopyText(is_library ? m_library.name : NameOf(m_library, listed), name);
            if (FAILED(copied)) return copied;
        }
        if (!text || !is_library) return S_OK;
        const HRESULT copied = CopyText(m_library.description, text);
        if (FAILED(copied) && name) SysFreeString(std::exchange(*name, nullptr));
        return copied;
    }

    HRESULT STDMETHODCALLTYPE IsName(LPOLESTR name, ULONG, BOOL* is_name) override {
        if (!is_name) return E_POINTER;
        *is_name = 0;
        if (!name) return E_POINTER;
        return AtBoundary([&] {
            const auto found = OccurrencesOf(m_library, name, 1);
            if (found.empty()) return S_OK;
            Spell(name, found.front());
            *is_name = 1;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE FindName(LPOLESTR name, ULONG, ITypeInfo** infos, MEMBERID* members,
                                       USHORT* count) override {
        if (!count) return E_POINTER;
        const USHORT room = std::exchange(*count, USHORT{0});
        if (infos) std::fill_n(infos, room, nullptr);
        if (members) std::fill_n(members, room, MEMBERID_NIL);
        if (!name || !infos || !members) return E_POINTER;
        return AtBoundary([&] {
            const auto found = OccurrencesOf(m_library, name, room);
            std::vector<ComPtr<ITypeInfo>> made(found.size());
            for (size_t i = 0; i < found.size(); ++i) {
                const HRESULT described = DescribeAt(m_library, found[i].index, made[i].put());
                if (FAILED(described)) return described;
            }
            for (size_t i = 0; i < found.size(); ++i) {
                infos[i] = made[i].detach();
                members[i] = found[i].member;
            }
            if (!found.empty()) Spell(name, found.front());
            *count = static_cast<USHORT>(found.size());
            return S_OK;
        });
    }

private:
    // Both have the same length. A caller's text that is right already may lie where nothing can be written.
    static void Spell(LPOLESTR name, const Occurrence& found) {
        if (name != found.name) std::ranges::copy(found.name, name);
    }

    ModuleLock m_module_lock;  // the table lies in the library
    const TypeLibrary& m_library;
};

}  // namespace

ModuleTypes::ModuleTypes(const TypeLibrary& library) noexcept {
    g_library = &library;
}

HRESULT ContainingLibrary(REFGUID guid, ITypeLib** library, UINT* index) {
    GiveNothing(S_OK, library, index);
    const auto listed = g_library ? IndexOf(*g_library, guid) : std::nullopt;
    if (!listed) return E_NOTIMPL;
    return AtBoundary([&] {
        if (library) *library = Make<TypeLib>(*g_library).detach();
        if (index) *index = *listed;
        return S_OK;
    });
}

HRESULT DescribeAt(const TypeLibrary& library, UINT index, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index >= CountOf(library)) return TYPE_E_ELEMENTNOTFOUND;
    const size_t types = library.types.size();
    if (index < types) return DescribeType(*library.types[index], info);
    return AtBoundary([&] {
        *info = MakeClassTypeInfo(library, index - types).detach();
        return S_OK;
    });
}

}  // namespace hx
