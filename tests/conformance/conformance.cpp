#include "tests/conformance/conformance.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <algorithm>

#include "platform/com/class_files.h"
#include "platform/registry/registry.h"
#include "platform/registry/registry_classes.h"
#include "platform/system/utf8.h"

namespace {

std::string PathOf(const std::string& library) {
    return HX_BIN_DIR "/" + library;
}

constexpr const char* kLibraries[] = {"HXScannerCtrls.so", "HXPreview.so", "HXSimulator.so"};

// As the libraries are listed beside them.
void Register() {
    const auto registry = hx::Registry();
    const auto set = [&](const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        registry->CreateKey(hx::RegistryRoot::kClassesRoot, key);
        registry->SetValue(hx::RegistryRoot::kClassesRoot, key, name, value);
    };
    for (const hx::ClassEntry& each : hx::ReadClassFiles(HX_BIN_DIR)->All()) {
        const std::wstring clsid = hx::GuidToText(each.clsid);
        const std::wstring key = L"CLSID\\" + clsid;
        set(key + L"\\InprocServer32", L"", each.library);
        set(key + L"\\InprocServer32", L"ThreadingModel", each.threading_model);
        set(key + L"\\ProgID", L"", each.prog_id);
        set(each.prog_id + L"\\CLSID", L"", clsid);
        if (each.version_independent_prog_id.empty()) continue;
        set(key + L"\\VersionIndependentProgID", L"", each.version_independent_prog_id);
        set(each.version_independent_prog_id + L"\\CLSID", L"", clsid);
    }
}

}  // namespace

void Conformance::SetUpTestSuite() {
    // Run by hand, too, the tests leave the machine's folders alone.
    setenv("HX_DATA", PathOf("../data").c_str(), 0);
    hx::SetRegistry(hx::MakeMemoryRegistry());
    Register();
    hx::SetClassLookup(hx::MakeRegistryClassLookup());
}

void Conformance::TearDownTestSuite() {
    hx::SetClassLookup(nullptr);
    hx::SetRegistry(nullptr);
}

void Conformance::TearDown() {
    SetErrorInfo(0, nullptr);
    CoFreeUnusedLibraries();
    for (const char* library : kLibraries)
        EXPECT_FALSE(IsLoaded(library)) << "something is alive of " << library;
}

bool Conformance::IsLoaded(const std::string& library) {
    void* const handle = dlopen(PathOf(library).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

bool Conformance::IsAnyLoaded() {
    return std::ranges::any_of(kLibraries, [](const char* library) { return IsLoaded(library); });
}

std::wstring Conformance::TakeErrorInformation() {
    hx::ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) != S_OK) return {};
    hx::Bstr description;
    EXPECT_EQ(information->GetDescription(description.put()), S_OK);
    return std::wstring(description.view());
}
