#include "platform/com/self_registration.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/com/boundary.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/library_unloading.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

using EntryPoint = HRESULT (*)();

// A handle of its own, whoever else has loaded the library: the system counts them.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const std::string& path)
        : m_path(path), m_handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {}
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    ~LoadedLibrary() {
        if (m_handle) UnloadWhenUnused(m_path, m_handle);
    }

    // Null if there is none, or no library; dlerror then tells why.
    EntryPoint Find(const char* name) const {
        return m_handle ? reinterpret_cast<EntryPoint>(dlsym(m_handle, name)) : nullptr;
    }

private:
    const std::string& m_path;
    void* const m_handle;
};

// The library may have set an object of its own, whose code goes with it.
void CopyErrorInfo() {
    ComPtr<IErrorInfo> theirs;
    ComPtr<ICreateErrorInfo> copy;
    if (GetErrorInfo(0, theirs.put()) != S_OK || FAILED(CreateErrorInfo(copy.put()))) return;
    GUID guid{};
    Bstr source;
    Bstr description;
    Bstr help_file;
    DWORD help_context = 0;
    if (SUCCEEDED(theirs->GetGUID(&guid))) copy->SetGUID(guid);
    if (SUCCEEDED(theirs->GetSource(source.put()))) copy->SetSource(source.get());
    if (SUCCEEDED(theirs->GetDescription(description.put()))) copy->SetDescription(description.get());
    if (SUCCEEDED(theirs->GetHelpFile(help_file.put()))) copy->SetHelpFile(help_file.get());
    if (SUCCEEDED(theirs->GetHelpContext(&help_context))) copy->SetHelpContext(help_context);
    SetErrorInfo(0, copy.as<IErrorInfo>().get());
}

// Empty if there is no such file.
std::string AbsolutePath(const std::wstring& path) {
    if (path.empty() || path.find(L'\0') != std::wstring::npos) return {};
    std::error_code error;
    // A library is registered under the name that it was loaded by, whatever the current folder was then.
    const std::filesystem::path absolute = std::filesystem::absolute(ToUtf8(path), error).lexically_normal();
    return !error && std::filesystem::exists(absolute, error) ? absolute.native() : std::string();
}

// The entry point of that name; null with the reason as error information.
EntryPoint FindOrTell(const LoadedLibrary& library, const char* name) {
    const EntryPoint entry_point = library.Find(name);
    if (entry_point) return entry_point;
    const char* const reason = dlerror();
    if (reason) LeaveErrorInfo(L"", FromDamagedUtf8(reason));
    return nullptr;
}

// What `use` says of the library.
template <class Use>
HRESULT WithLibrary(const std::wstring& path_as_given, Use use) {
    SetErrorInfo(0, nullptr);
    return AtBoundary([&] {
        const std::string path = AbsolutePath(path_as_given);
        if (path.empty()) return CO_E_DLLNOTFOUND;
        return use(LoadedLibrary(path));
    });
}

HRESULT CallEntryPoint(const std::wstring& path, const char* name) {
    return WithLibrary(path, [&](const LoadedLibrary& library) {
        const EntryPoint entry_point = FindOrTell(library, name);
        if (!entry_point) return CO_E_ERRORINDLL;
        // An exception goes no further: it would outlive the library.
        const HRESULT result = AtBoundary(entry_point);
        CopyErrorInfo();
        return result;
    });
}

}  // namespace

HRESULT RegisterComponentLibrary(const std::wstring& path) {
    return CallEntryPoint(path, "DllRegisterServer");
}

HRESULT UnregisterComponentLibrary(const std::wstring& path) {
    return CallEntryPoint(path, "DllUnregisterServer");
}

HRESULT CheckComponentLibrary(const std::wstring& path) {
    return WithLibrary(path, [](const LoadedLibrary& library) {
        for (const char* const name : {"DllGetClassObject", "DllCanUnloadNow"}) {
            if (!FindOrTell(library, name)) return CO_E_ERRORINDLL;
        }
        return S_OK;
    });
}

}  // namespace hx
