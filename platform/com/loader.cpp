#include "platform/com/loader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <list>
#include <mutex>
#include <string>

#include "platform/com/boundary.h"
#include "platform/com/class_files.h"
#include "platform/com/comptr.h"
#include "platform/com/library_unloading.h"
#include "platform/com/usual_class_lookup.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace {

using GetClassObjectFunction = HRESULT (*)(REFCLSID, REFIID, void**);
using CanUnloadNowFunction = HRESULT (*)();

struct Library {
    std::string path;
    void* handle = nullptr;
    GetClassObjectFunction get_class_object = nullptr;
    CanUnloadNowFunction can_unload_now = nullptr;
    uint32_t users = 0;  // calls that are inside the library or about to be
};

std::shared_ptr<hx::IClassLookup> MakeTableLookup() {
    return hx::ReadClassFiles(hx::ThisLibraryFolder());
}

struct Loader {
    std::mutex mutex;
    std::list<Library> libraries;  // a list, so that entries stay where they are
    std::shared_ptr<hx::IClassLookup> lookup;
    hx::ClassLookupMaker make_usual_lookup = &MakeTableLookup;
};

// Never destroyed: components may still be created and released while the process exits.
Loader& TheLoader() {
    static Loader& loader = *new Loader;
    return loader;
}

bool FindEntryPoints(void* handle, Library& library) {
    library.handle = handle;
    library.get_class_object = reinterpret_cast<GetClassObjectFunction>(dlsym(handle, "DllGetClassObject"));
    library.can_unload_now = reinterpret_cast<CanUnloadNowFunction>(dlsym(handle, "DllCanUnloadNow"));
    return library.get_class_object && library.can_unload_now;
}

HRESULT Load(const std::string& path, Library& library) {
    if (access(path.c_str(), F_OK) != 0) return CO_E_DLLNOTFOUND;
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) return CO_E_ERRORINDLL;
    if (FindEntryPoints(handle, library)) return S_OK;
    dlclose(handle);
    return CO_E_ERRORINDLL;
}

// One handle is enough of a library that the loader has loaded already.
void KeepOnce(Library library) {
    Loader& loader = TheLoader();
    const std::lock_guard guard(loader.mutex);
    for (const Library& loaded : loader.libraries) {
        if (loaded.handle != library.handle) continue;
        dlclose(library.handle);
        return;
    }
    loader.libraries.push_back(std::move(library));
}

// Holds a library in memory while a call is in it. The count of the library's own objects is not enough: it
// falls to zero inside the library's code, and the rest of that code must still be there to return from.
class LibraryUse {
public:
    LibraryUse() = default;
    LibraryUse(const LibraryUse&) = delete;
    LibraryUse& operator=(const LibraryUse&) = delete;
    ~LibraryUse() {
        if (!m_library) return;
        const std::lock_guard guard(TheLoader().mutex);
        --m_library->users;
    }

    HRESULT Open(const std::string& path) {
        Loader& loader = TheLoader();
        const std::lock_guard guard(loader.mutex);
        for (Library& library : loader.libraries) {
            if (library.path == path) return Use(library);
        }
        Library& library = loader.libraries.emplace_back();
        library.path = path;
        const HRESULT result = Load(path, library);
        if (SUCCEEDED(result)) return Use(library);
        loader.libraries.pop_back();
        return result;
    }

    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
        return m_library->get_class_object(clsid, iid, object);
    }

private:
    HRESULT Use(Library& library) {
        ++library.users;
        m_library = &library;
        return S_OK;
    }

    Library* m_library = nullptr;
};

HRESULT OpenLibraryOf(REFCLSID clsid, DWORD context, LibraryUse& library) {
    if (context == 0) return E_INVALIDARG;
    if (!(context & CLSCTX_INPROC_SERVER)) return REGDB_E_CLASSNOTREG;
    const std::optional<std::wstring> path = hx::ClassLookup()->LibraryOf(clsid);
    return path ? library.Open(hx::ToUtf8(*path)) : REGDB_E_CLASSNOTREG;
}

}  // namespace

HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, void* reserved, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (reserved) return E_INVALIDARG;
    return hx::AtBoundary([&] {
        LibraryUse library;
        const HRESULT result = OpenLibraryOf(clsid, context, library);
        return FAILED(result) ? result : library.GetClassObject(clsid, iid, object);
    });
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return hx::AtBoundary([&] {
        LibraryUse library;  // outlives the factory, whose last Release may leave the library idle
        HRESULT result = OpenLibraryOf(clsid, context, library);
        if (FAILED(result)) return result;
        hx::ComPtr<IClassFactory> factory;
        result = library.GetClassObject(clsid, IID_IClassFactory, factory.put_void());
        return FAILED(result) ? result : factory->CreateInstance(outer, iid, object);
    });
}

HRESULT CLSIDFromProgID(LPCOLESTR prog_id, CLSID* clsid) {
    if (!clsid) return E_INVALIDARG;
    *clsid = CLSID_NULL;
    if (!prog_id) return E_INVALIDARG;
    return hx::AtBoundary([&] {
        const std::optional<CLSID> found = hx::ClassLookup()->ByProgId(prog_id);
        if (!found) return CO_E_CLASSSTRING;
        *clsid = *found;
        return S_OK;
    });
}

HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* prog_id) {
    if (!prog_id) return E_INVALIDARG;
    *prog_id = nullptr;
    return hx::AtBoundary([&] {
        const std::optional<hx::ClassEntry> entry = hx::ClassLookup()->ByClsid(clsid);
        if (!entry || entry->prog_id.empty()) return REGDB_E_CLASSNOTREG;
        const size_t bytes = (entry->prog_id.size() + 1) * sizeof(OLECHAR);
        *prog_id = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
        if (!*prog_id) return E_OUTOFMEMORY;
        std::memcpy(*prog_id, entry->prog_id.c_str(), bytes);
        return S_OK;
    });
}

void* CoTaskMemAlloc(size_t bytes) {
    return std::malloc(bytes);
}
void CoTaskMemFree(void* memory) {
    std::free(memory);
}

void CoFreeUnusedLibraries() {
    Loader& loader = TheLoader();
    const std::lock_guard guard(loader.mutex);
    loader.libraries.remove_if([](const Library& library) {
        if (library.users != 0 || library.can_unload_now() != S_OK) return false;
        dlclose(library.handle);
        return true;
    });
}

namespace hx {

void UnloadWhenUnused(const std::string& path, void* handle) noexcept {
    try {
        Library library{path};
        const bool is_component_library = FindEntryPoints(handle, library);
        if (!library.can_unload_now || library.can_unload_now() == S_OK) {
            dlclose(handle);
        } else if (is_component_library) {
            KeepOnce(std::move(library));
        }
    } catch (...) {
        // Without memory it stays loaded.
    }
}

void SetClassLookup(std::shared_ptr<IClassLookup> lookup) {
    Loader& loader = TheLoader();
    const std::lock_guard guard(loader.mutex);
    loader.lookup.swap(lookup);
}

std::shared_ptr<IClassLookup> ClassLookup() {
    Loader& loader = TheLoader();
    const std::lock_guard guard(loader.mutex);
    if (!loader.lookup) loader.lookup = loader.make_usual_lookup();
    return loader.lookup;
}

void SetUsualClassLookup(ClassLookupMaker maker) {
    Loader& loader = TheLoader();
    const std::lock_guard guard(loader.mutex);
    loader.make_usual_lookup = maker;
}

}  // namespace hx
