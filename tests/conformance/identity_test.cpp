// What each class is found by, which interfaces its objects have, and that all of them are of one object.
#include "hxapi/HXScannerCtrlsClasses.h"
#include "tests/conformance/conformance.h"

namespace {

using hx::ComPtr;

std::vector<std::string> InterfacesOf(IUnknown& object) {
    std::vector<std::string> names;
    for (const InterfaceRow& each : AllInterfaces()) {
        void* const poison = &names;
        void* found = poison;
        const HRESULT result = object.QueryInterface(each.iid, &found);
        EXPECT_NE(found, poison) << each.name;
        EXPECT_EQ(result, found ? S_OK : E_NOINTERFACE) << each.name;
        if (!found || found == poison) continue;
        static_cast<IUnknown*>(found)->Release();
        names.emplace_back(each.name);
    }
    return names;
}

TEST_F(Conformance, ClassesAreFoundByWhatIsRegisteredAndNoOtherIs) {
    EXPECT_EQ(hx::ClassLookup()->All().size(), AllClasses().size());
    ForEachClass([](const ClassPromises& row) {
        const auto entry = hx::ClassLookup()->ByClsid(row.clsid);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->prog_id, row.prog_id);
        EXPECT_EQ(entry->version_independent_prog_id, row.version_independent_prog_id);
        EXPECT_EQ(entry->threading_model, row.threading_model);
        for (const std::wstring& prog_id : {row.prog_id, row.version_independent_prog_id}) {
            if (prog_id.empty()) continue;
            CLSID clsid{};
            EXPECT_EQ(CLSIDFromProgID(prog_id.c_str(), &clsid), S_OK);
            EXPECT_EQ(clsid, row.clsid);
        }
        LPOLESTR prog_id = nullptr;
        ASSERT_EQ(ProgIDFromCLSID(row.clsid, &prog_id), S_OK);
        EXPECT_EQ(prog_id, row.prog_id);
        CoTaskMemFree(prog_id);
    });
}

// The type library knows of this page, too.
TEST_F(Conformance, ThePageThatNoClassImplementsIsNotRegistered) {
    void* out = &out;
    EXPECT_EQ(
        CoCreateInstance(CLSID_HXScannerRorSettingsCtrl, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &out),
        REGDB_E_CLASSNOTREG);
    EXPECT_EQ(out, nullptr);
    out = &out;
    EXPECT_EQ(CoGetClassObject(CLSID_HXScannerRorSettingsCtrl, CLSCTX_INPROC_SERVER, nullptr,
                               IID_IClassFactory, &out),
              REGDB_E_CLASSNOTREG);
    EXPECT_EQ(out, nullptr);
    CLSID clsid = CLSID_HXScannerMeasSettingsCtrl;
    EXPECT_EQ(CLSIDFromProgID(L"Orvel.HXScannerCtrls.HXRorSettingsCtrl.1", &clsid), CO_E_CLASSSTRING);
    EXPECT_EQ(clsid, CLSID_NULL);
}

// Each interface leads to every other one, and all of them to one IUnknown.
TEST_F(Conformance, ObjectsHaveTheirInterfacesAndOneIdentity) {
    ForEachClass([](const ClassPromises& row) {
        std::vector<std::string> promised;
        for (const InterfaceRow& each : AllInterfaces()) {
            if (Has(row, each.iid)) promised.emplace_back(each.name);
        }
        ASSERT_EQ(promised.size(), row.interfaces.size() + 1) << "an interface is not among all";
        const auto object = Create(row.clsid);
        ASSERT_TRUE(object);
        EXPECT_NE(Create(row.clsid), object);
        EXPECT_EQ(InterfacesOf(*object), promised);
        for (const IID& iid : row.interfaces) {
            ComPtr<IUnknown> face;
            ASSERT_EQ(object->QueryInterface(iid, face.put_void()), S_OK);
            EXPECT_EQ(InterfacesOf(*face), promised);
            ComPtr<IUnknown> again;
            EXPECT_EQ(face->QueryInterface(iid, again.put_void()), S_OK);
            EXPECT_EQ(again, face);
            EXPECT_EQ(face.as<IUnknown>(), object);
            EXPECT_EQ(face->QueryInterface(iid, nullptr), E_POINTER);
        }
    });
}

TEST_F(Conformance, ReferencesAreCountedThroughEveryInterface) {
    ForEachClass([](const ClassPromises& row) {
        std::vector<IID> interfaces = row.interfaces;
        interfaces.push_back(IID_IUnknown);
        for (const IID& iid : interfaces) {
            ComPtr<IUnknown> face;
            ASSERT_EQ(CoCreateInstance(row.clsid, nullptr, CLSCTX_INPROC_SERVER, iid, face.put_void()), S_OK);
            EXPECT_EQ(face->AddRef(), 2u) << "the creator has the only reference";
            EXPECT_EQ(face->AddRef(), 3u);
            EXPECT_EQ(face->Release(), 2u);
            EXPECT_EQ(face->Release(), 1u);
            InterfacesOf(*face);
            EXPECT_EQ(CountOf(*face), 1u);
            EXPECT_EQ(face.detach()->Release(), 0u);
        }
    });
}

}  // namespace
