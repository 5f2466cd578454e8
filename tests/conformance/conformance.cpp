#include "tests/conformance/conformance.h"

#include <dlfcn.h>
#include <stdlib.h>

#include <algorithm>

#include "platform/com/self_registration.h"
#include "platform/registry/registry.h"
#include "platform/registry/registry_classes.h"
#include "platform/system/utf8.h"

namespace {

std::string PathOf(const std::string& library) {
    return HX_BIN_DIR "/" + library;
}

constexpr const char* kLibraries[] = {"HXScannerCtrls.so", "HXPreview.so", "HXSimulator.so"};

}  // namespace

void Conformance::SetUpTestSuite() {
    // Run by hand, too, the tests leave the machine's folders alone.
    setenv("HX_DATA", PathOf("../data").c_str(), 0);
    hx::SetRegistry(hx::MakeMemoryRegistry());
    for (const char* library : kLibraries) {
        ASSERT_EQ(hx::RegisterComponentLibrary(LibraryOf(library)), S_OK) << library;
    }
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

std::wstring Conformance::LibraryOf(const std::string& file_name) {
    return *hx::FromUtf8(PathOf(file_name));
}

bool Conformance::IsLoaded(const std::string& library) {
    void* const handle = dlopen(PathOf(library).c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

bool Conformance::IsAnyLoaded() {
    return std::ranges::any_of(kLibraries, [](const char* library) { return IsLoaded(library); });
}
