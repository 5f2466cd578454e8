// The rules that every class of the component library keeps. They walk all classes that are listed.
#include <cstdio>
#include <set>
#include <vector>

#include "hxapi/DHXConfigCtrl.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/ICoMHXConnSettings.h"
#include "hxapi/ICoMHXMeasSettings.h"
#include "hxapi/IGetPointer.h"
#include "hxapi/IProfileSettingsFactory.h"
#include "platform/com/connection_point.h"
#include "platform/com/errorinfo.h"
#include "platform/com/implements.h"
#include "platform/com/ole_control.h"
#include "platform/com/persist.h"
#include "platform/com/property_page.h"
#include "tests/server/component_library.h"

namespace {

using hx::ComPtr;

// Every interface that some class here may have.
const IID kInterfaces[] = {
    IID_IUnknown,
    IID_IClassFactory,
    IID_IDispatch,
    IID_IErrorInfo,
    IID_ISupportErrorInfo,
    IID_ICoMHXConnSettings,
    IID_ICoMHXMeasSettings,
    IID_ITriggerSource,
    IID_IGetPointer,
    IID_IProfileSettingsFactory,
    IID_IXmlBstrSerializable,
    IID_DHXConfigCtrl,
    IID_DHXConfigCtrlEvents,
    IID_IOleObject,
    IID_IOleWindow,
    IID_IOleInPlaceObject,
    IID_IOleClientSite,
    IID_IOleControl,
    IID_IPersist,
    IID_IPersistStreamInit,
    IID_ISpecifyPropertyPages,
    IID_IConnectionPointContainer,
    IID_IConnectionPoint,
    IID_IPropertyPage,
};

std::set<size_t> InterfacesOf(IUnknown& object) {
    std::set<size_t> interfaces;
    for (size_t i = 0; i < std::size(kInterfaces); ++i) {
        ComPtr<IUnknown> found;
        if (SUCCEEDED(object.QueryInterface(kInterfaces[i], found.put_void()))) interfaces.insert(i);
    }
    return interfaces;
}

class Conformance : public ComponentLibrary {
protected:
    static std::vector<hx::ClassEntry> Classes() {
        std::vector<hx::ClassEntry> classes = hx::ClassLookup()->All();
        std::erase_if(classes, [](const hx::ClassEntry& each) {
            return !each.library.ends_with(L"/HXScannerCtrls.so");
        });
        return classes;
    }
};

TEST_F(Conformance, TheClassesAreListedAndAvailable) {
    struct Row {
        CLSID clsid;
        std::wstring prog_id;
        std::wstring version_independent;
        std::wstring threading;
        std::set<IID const*> interfaces;
    };
    const std::set<IID const*> kPage = {&IID_IUnknown,
                                        &IID_DHXConfigCtrl,
                                        &IID_IDispatch,
                                        &IID_IOleObject,
                                        &IID_IOleWindow,
                                        &IID_IOleInPlaceObject,
                                        &IID_IOleControl,
                                        &IID_IPersist,
                                        &IID_IPersistStreamInit,
                                        &IID_ISpecifyPropertyPages,
                                        &IID_IConnectionPointContainer};
    const Row rows[] = {
        {CLSID_CoMHXMeasSettings,
         L"Orvel.HXScannerCtrls.HXMeasSettings.1",
         L"Orvel.HXScannerCtrls.HXMeasSettings",
         L"",
         {&IID_IUnknown, &IID_ICoMHXMeasSettings, &IID_ITriggerSource, &IID_IDispatch,
          &IID_IXmlBstrSerializable, &IID_ISupportErrorInfo, &IID_IGetPointer}},
        {CLSID_CoMHXSettingsFactory,
         L"Orvel.HXScannerCtrls.HXSettingsFactory.1",
         L"Orvel.HXScannerCtrls.HXSettingsFactory",
         L"Both",
         {&IID_IUnknown, &IID_IProfileSettingsFactory}},
        {CLSID_CoMHXConnSettings,
         L"Orvel.HXScannerCtrls.HXConnSettings.1",
         L"Orvel.HXScannerCtrls.HXConnSettings",
         L"",
         {&IID_IUnknown, &IID_ICoMHXConnSettings, &IID_IXmlBstrSerializable}},
        {CLSID_HXScannerMeasSettingsCtrl, L"Orvel.HXScannerCtrls.HXMeasSettingsCtrl.1", L"", L"Apartment",
         kPage},
        {CLSID_HXScannerHandheldMeasSettingsCtrl, L"Orvel.HXScannerCtrls.HXHandheldMeasSettingsCtrl.1", L"",
         L"Apartment", kPage},
        {CLSID_HXScannerDiagnosticsCtrl, L"Orvel.HXScannerCtrls.HXDiagnosticsCtrl.1", L"", L"Apartment",
         kPage},
        {CLSID_HXScannerMeasSettingsPropPage,
         L"HXSCANNERCTRL.MeasSettingsPropPage.1",
         L"",
         L"",
         {&IID_IUnknown, &IID_IPropertyPage}},
    };
    EXPECT_EQ(Classes().size(), std::size(rows));
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.prog_id));
        const auto entry = hx::ClassLookup()->ByClsid(row.clsid);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->prog_id, row.prog_id);
        EXPECT_EQ(entry->threading_model, row.threading);
        for (const std::wstring& prog_id : {row.prog_id, row.version_independent}) {
            if (prog_id.empty()) continue;
            CLSID clsid{};
            EXPECT_EQ(CLSIDFromProgID(prog_id.c_str(), &clsid), S_OK);
            EXPECT_EQ(clsid, row.clsid);
        }
        const auto object = Create<IUnknown>(row.clsid);
        for (const IID& iid : kInterfaces) {
            ComPtr<IUnknown> found;
            const bool expected = std::any_of(row.interfaces.begin(), row.interfaces.end(),
                                              [&](const IID* each) { return *each == iid; });
            EXPECT_EQ(object->QueryInterface(iid, found.put_void()), expected ? S_OK : E_NOINTERFACE)
                << &iid - kInterfaces;
        }
    }
}

// From every interface every other one is reached, and all lead to the same IUnknown.
TEST_F(Conformance, InterfacesAreSymmetricAndShareOneIdentity) {
    for (const hx::ClassEntry& each : Classes()) {
        SCOPED_TRACE(testing::PrintToString(each.prog_id));
        const auto object = Create<IUnknown>(each.clsid);
        const std::set<size_t> interfaces = InterfacesOf(*object);
        for (const size_t i : interfaces) {
            ComPtr<IUnknown> face;
            ASSERT_EQ(object->QueryInterface(kInterfaces[i], face.put_void()), S_OK);
            EXPECT_EQ(InterfacesOf(*face), interfaces);
            EXPECT_EQ(face.as<IUnknown>().get(), object.get());
            EXPECT_EQ(face->QueryInterface(kInterfaces[i], nullptr), E_POINTER);
        }
        void* none = &none;
        EXPECT_EQ(object->QueryInterface(IID_NULL, &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(object->AddRef(), 2u) << "a reference was lost or leaked";
        EXPECT_EQ(object->Release(), 1u);
    }
}

class Outer final : public hx::Implements<Outer, hx::FreeThreaded, IErrorInfo> {
    HRESULT STDMETHODCALLTYPE GetGUID(GUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSource(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetDescription(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD*) override { return E_NOTIMPL; }
};

TEST_F(Conformance, FactoriesRefuseWhatTheyCannotMake) {
    const auto outer = hx::Make<Outer>();
    for (const hx::ClassEntry& each : Classes()) {
        SCOPED_TRACE(testing::PrintToString(each.prog_id));
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(CoGetClassObject(each.clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                   factory.put_void()),
                  S_OK);
        void* out = &out;
        EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
        EXPECT_EQ(out, nullptr);
        out = &out;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IErrorInfo, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    }
    EXPECT_EQ(outer->AddRef(), 2u);
    outer->Release();
}

// The library itself, opened as the loader does it.
class EntryPoints : public Conformance {
protected:
    using GetClassObject = HRESULT (*)(REFCLSID, REFIID, void**);
    using CanUnloadNow = HRESULT (*)();

    void SetUp() override {
        m_library = dlopen(Path().c_str(), RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(m_library, nullptr) << dlerror();
        m_get = reinterpret_cast<GetClassObject>(dlsym(m_library, "DllGetClassObject"));
        m_can = reinterpret_cast<CanUnloadNow>(dlsym(m_library, "DllCanUnloadNow"));
        ASSERT_TRUE(m_get != nullptr && m_can != nullptr);
    }
    void TearDown() override {
        dlclose(m_library);
        Conformance::TearDown();
    }

    void* m_library = nullptr;
    GetClassObject m_get = nullptr;
    CanUnloadNow m_can = nullptr;
};

TEST_F(EntryPoints, WhatIsAliveKeepsTheLibrary) {
    for (const hx::ClassEntry& each : Classes()) {
        SCOPED_TRACE(testing::PrintToString(each.prog_id));
        EXPECT_EQ(m_can(), S_OK);
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(m_get(each.clsid, IID_IClassFactory, factory.put_void()), S_OK);
        EXPECT_EQ(m_can(), S_FALSE) << "a factory in a client's hands";
        ComPtr<IUnknown> object;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.put_void()), S_OK);
        ComPtr<IUnknown> other;
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, other.put_void()), S_OK);
        EXPECT_NE(object.get(), other.get());
        EXPECT_EQ(factory->LockServer(TRUE), S_OK);
        factory.reset();
        object.reset();
        EXPECT_EQ(m_can(), S_FALSE) << "an object and a lock";
        other.reset();
        EXPECT_EQ(m_can(), S_FALSE) << "a lock";
        EXPECT_EQ(m_get(each.clsid, IID_IClassFactory, factory.put_void()), S_OK);
        EXPECT_EQ(factory->LockServer(FALSE), S_OK);
        factory.reset();
        EXPECT_EQ(m_can(), S_OK);
    }
}

TEST_F(EntryPoints, UnknownClassesAndInterfacesAreNotAvailable) {
    void* out = &out;
    EXPECT_EQ(m_get(CLSID_NULL, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    for (const hx::ClassEntry& each : Classes()) {
        out = &out;
        EXPECT_EQ(m_get(each.clsid, IID_IXmlBstrSerializable, &out), CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(m_get(each.clsid, IID_IClassFactory, nullptr), E_POINTER);
    }
    EXPECT_EQ(m_can(), S_OK);
}

TEST_F(EntryPoints, NothingElseIsExported) {
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
