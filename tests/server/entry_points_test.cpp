// The entry points of the component libraries, called as the loader calls them.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <string>

#include "hxapi/HXPreviewClasses.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/HXSimulatorClasses.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"

namespace {

struct Library {
    const char* name;
    CLSID clsid;  // of one of its classes
};

class EntryPoints : public testing::TestWithParam<Library> {
protected:
    using GetClassObject = HRESULT (*)(REFCLSID, REFIID, void**);
    using CanUnloadNow = HRESULT (*)();

    static std::string Path() { return std::string(HX_BIN_DIR "/") + GetParam().name; }
    void SetUp() override {
        m_library = dlopen(Path().c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(m_library, nullptr) << dlerror();
        m_get = reinterpret_cast<GetClassObject>(dlsym(m_library, "DllGetClassObject"));
        m_can = reinterpret_cast<CanUnloadNow>(dlsym(m_library, "DllCanUnloadNow"));
        ASSERT_TRUE(m_get != nullptr && m_can != nullptr);
    }
    void TearDown() override {
        EXPECT_EQ(m_can(), S_OK);
        dlclose(m_library);
        EXPECT_EQ(dlopen(Path().c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    }

    void* m_library = nullptr;
    GetClassObject m_get = nullptr;
    CanUnloadNow m_can = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Each, EntryPoints,
                         testing::Values(Library{"HXScannerCtrls.so", CLSID_CoMHXConnSettings},
                                         Library{"HXPreview.so", CLSID_HXPreview},
                                         Library{"HXSimulator.so", CLSID_HXSimulator}),
                         [](const auto& each) {
                             const std::string name = each.param.name;
                             return name.substr(0, name.find('.'));
                         });

TEST_P(EntryPoints, UnknownClassesAndInterfacesAreNotAvailable) {
    void* out = &out;
    EXPECT_EQ(m_get(CLSID_NULL, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(m_get(CLSID_HXScannerRorSettingsCtrl, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(m_get(GetParam().clsid, IID_IErrorInfo, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(m_get(GetParam().clsid, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(m_can(), S_OK) << "nothing was handed out";
    hx::ComPtr<IClassFactory> factory;
    EXPECT_EQ(m_get(GetParam().clsid, IID_IClassFactory, factory.put_void()), S_OK);
    EXPECT_EQ(m_can(), S_FALSE) << "a factory in a client's hands";
}

// The leak checker tells what stays of a library that is unloaded without a question.
TEST_P(EntryPoints, ARefusalAloneKeepsNothingAlive) {
    void* out = nullptr;
    EXPECT_EQ(m_get(CLSID_NULL, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    dlclose(m_library);
    EXPECT_EQ(dlopen(Path().c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    SetUp();
}

TEST_P(EntryPoints, NothingElseIsExported) {
    FILE* const nm = popen(("nm -D --defined-only --format=posix '" + Path() + "'").c_str(), "r");
    ASSERT_NE(nm, nullptr);
    std::set<std::string> symbols;
    char line[4096];
    while (fgets(line, sizeof line, nm) != nullptr)
        symbols.insert(std::string(line).substr(0, std::string(line).find(' ')));
    EXPECT_EQ(pclose(nm), 0);
    EXPECT_EQ(symbols, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                              "DllUnregisterServer"}));
}

}  // namespace
