#include "platform/com/loader.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <thread>
#include <utility>

#include "platform/com/bstr.h"
#include "platform/com/class_files.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/self_registration.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "tests/platform/beside_platform.h"
#include "tests/platform/test_component.h"
#include "tests/told_error.h"

namespace {

const std::string component = std::string(HX_BIN_DIR) + "/libhx_test_component.so";
const std::string no_component = std::string(HX_BIN_DIR) + "/libhx_test_no_component.so";

constexpr CLSID CLSID_NotInLibrary = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A2");
constexpr CLSID CLSID_NoFile = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A3");
constexpr CLSID CLSID_NoLibrary = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A4");
constexpr CLSID CLSID_NoEntryPoint = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A5");
constexpr CLSID CLSID_Unlisted = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A6");

// True while the process has the file mapped as a library, whoever loaded it.
bool IsLoaded(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle != nullptr;
}

std::string Line(const CLSID& clsid, const std::string& prog_id, const std::string& library) {
    return hx::ToUtf8(hx::GuidToText(clsid)) + "\t" + prog_id + ".2\t" + prog_id + "\tBoth\t" + library +
           "\n";
}

class Loader : public testing::Test {
protected:
    void SetUp() override {
        m_folder.Write("garbage.so", "this is no library");
        m_folder.Write("test.classes", Line(CLSID_Tally, "Hx.Tally", component) +
                                           Line(CLSID_NotInLibrary, "Hx.NotInLibrary", component) +
                                           Line(CLSID_Unloading, "Hx.Unloading", component) +
                                           Line(CLSID_NoFile, "Hx.NoFile", "missing.so") +
                                           Line(CLSID_NoLibrary, "Hx.NoLibrary", "garbage.so") +
                                           Line(CLSID_NoEntryPoint, "Hx.NoEntryPoint", no_component));
        hx::SetClassLookup(hx::ReadClassFiles(m_folder.path()));
    }
    void TearDown() override {
        hx::SetClassLookup(nullptr);
        CoFreeUnusedLibraries();
        EXPECT_FALSE(IsLoaded(component)) << "something of the library is still held";
    }
    static hx::ComPtr<ITally> Create(REFCLSID clsid = CLSID_Tally) {
        hx::ComPtr<ITally> tally;
        EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_ITally, tally.put_void()), S_OK);
        return tally;
    }

    TemporaryFolder m_folder;
};

TEST_F(Loader, FindsClassesByProgId) {
    const std::pair<const wchar_t*, HRESULT> rows[] = {
        {L"Hx.Tally.2", S_OK},          {L"HX.TALLY", S_OK},     {L"Hx.Tally.1", CO_E_CLASSSTRING},
        {L"Hx.Tall", CO_E_CLASSSTRING}, {L"", CO_E_CLASSSTRING}, {nullptr, E_INVALIDARG},
    };
    for (const auto& [prog_id, result] : rows) {
        CLSID clsid = CLSID_Unlisted;
        EXPECT_EQ(CLSIDFromProgID(prog_id, &clsid), result) << result;
        EXPECT_EQ(clsid, SUCCEEDED(result) ? CLSID_Tally : CLSID_NULL) << result;
    }

    LPOLESTR prog_id = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(CLSID_Tally, &prog_id), S_OK);
    EXPECT_EQ(std::wstring(prog_id), L"Hx.Tally.2") << "the one with the version";
    CoTaskMemFree(prog_id);
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Unlisted, &prog_id), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(prog_id, nullptr);
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Tally, nullptr), E_INVALIDARG);
    EXPECT_EQ(CLSIDFromProgID(L"Hx.Tally", nullptr), E_INVALIDARG);
}

TEST_F(Loader, SaysWhatIsWrong) {
    struct Row {
        const CLSID& clsid;
        const IID& iid;
        DWORD context;
        HRESULT result;
    };
    const Row rows[] = {
        {CLSID_Unlisted, IID_IUnknown, CLSCTX_INPROC_SERVER, REGDB_E_CLASSNOTREG},
        {CLSID_Tally, IID_IUnknown, CLSCTX_LOCAL_SERVER, REGDB_E_CLASSNOTREG},
        {CLSID_Tally, IID_IUnknown, 0, E_INVALIDARG},
        {CLSID_NoFile, IID_IUnknown, CLSCTX_INPROC_SERVER, CO_E_DLLNOTFOUND},
        {CLSID_NoLibrary, IID_IUnknown, CLSCTX_INPROC_SERVER, CO_E_ERRORINDLL},
        {CLSID_NoEntryPoint, IID_IUnknown, CLSCTX_ALL, CO_E_ERRORINDLL},
        {CLSID_NotInLibrary, IID_IUnknown, CLSCTX_ALL, CLASS_E_CLASSNOTAVAILABLE},
        {CLSID_Tally, IID_IClassFactory, CLSCTX_ALL, E_NOINTERFACE},
    };
    for (const Row& row : rows) {
        void* out = &m_folder;
        EXPECT_EQ(CoCreateInstance(row.clsid, nullptr, row.context, row.iid, &out), row.result)
            << &row - rows;
        EXPECT_EQ(out, nullptr) << &row - rows;
    }
    EXPECT_FALSE(IsLoaded(no_component)) << "refused, yet kept";
    void* out = &m_folder;
    EXPECT_EQ(CoGetClassObject(CLSID_Tally, CLSCTX_ALL, &m_folder, IID_IClassFactory, &out), E_INVALIDARG);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Loader, UnloadsWhatNobodyUses) {
    EXPECT_FALSE(IsLoaded(component));
    hx::ComPtr<IClassFactory> factory;
    EXPECT_EQ(CoGetClassObject(CLSID_Tally, CLSCTX_ALL, nullptr, IID_IClassFactory, factory.put_void()),
              S_OK);
    CoFreeUnusedLibraries();
    EXPECT_TRUE(IsLoaded(component)) << "a factory in use keeps its library";
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "DllGetClassObject"), nullptr) << "its names are for nobody else";
    hx::ComPtr<ITally> tally;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_ITally, tally.put_void()), S_OK);
    factory.reset();
    CoFreeUnusedLibraries();
    EXPECT_EQ(Create()->Created(), 2) << "an object in use keeps its library, whose one copy serves all";
    tally.reset();
    CoFreeUnusedLibraries();
    EXPECT_FALSE(IsLoaded(component));
    EXPECT_EQ(Create()->Created(), 1) << "loaded anew, not kept";
}

TEST_F(Loader, StaysWhileACallIsInside) {
    // The library asks for its own unloading from within the call, when nothing of it is in use yet.
    void* out = &m_folder;
    EXPECT_EQ(CoGetClassObject(CLSID_Unloading, CLSCTX_ALL, nullptr, IID_IClassFactory, &out),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_TRUE(IsLoaded(component));
}

TEST_F(Loader, UnloadsOnlyAroundCallsThatAreInside) {
    std::thread other([] {
        for (int i = 0; i < 300; ++i) Create();
    });
    for (int i = 0; i < 300; ++i) {
        // Each leaves the library idle while still inside it: the object goes, then the factory.
        void* out = &m_folder;
        EXPECT_EQ(CoCreateInstance(CLSID_Tally, nullptr, CLSCTX_ALL, IID_IClassFactory, &out), E_NOINTERFACE);
        CoFreeUnusedLibraries();
    }
    other.join();
}

using SelfRegistration = Loader;

TEST_F(SelfRegistration, WhatTheLibrarySaysOutlivesIt) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(HX_BIN_DIR);
    for (const std::string& path : {component, std::string("libhx_test_component.so")}) {
        EXPECT_EQ(hx::RegisterComponentLibrary(*hx::FromUtf8(path)), SELFREG_E_CLASS);
        EXPECT_FALSE(IsLoaded(component)) << path;
        const ToldError told = TakeToldError();
        EXPECT_EQ(told.guid, CLSID_Tally);
        EXPECT_EQ(told.source, L"Hx.Tally.2");
        EXPECT_EQ(told.description, L"no room for a tally");
    }
    std::filesystem::current_path(before);
}

TEST_F(SelfRegistration, SaysWhatIsNoComponentLibrary) {
    const std::pair<std::string, HRESULT> rows[] = {
        {"", CO_E_DLLNOTFOUND},
        {component + ".missing", CO_E_DLLNOTFOUND},
        {m_folder.path() / "garbage.so", CO_E_ERRORINDLL},
        {m_folder.path(), CO_E_ERRORINDLL},
        {no_component, CO_E_ERRORINDLL},
    };
    for (const auto& [path, result] : rows) {
        hx::RegisterComponentLibrary(*hx::FromUtf8(component));  // something was said before
        EXPECT_EQ(hx::UnregisterComponentLibrary(*hx::FromUtf8(path)), result) << path;
        EXPECT_EQ(TakeToldError().description != L"", result == CO_E_ERRORINDLL) << path;
        EXPECT_EQ(hx::CheckComponentLibrary(*hx::FromUtf8(path)), result) << path;
    }
    EXPECT_FALSE(IsLoaded(no_component));
    EXPECT_EQ(hx::CheckComponentLibrary(*hx::FromUtf8(component)), S_OK);
}

TEST_F(SelfRegistration, LeavesAloneWhatIsInUse) {
    const std::wstring path = *hx::FromUtf8(component);
    const hx::ComPtr<ITally> tally = Create();
    hx::RegisterComponentLibrary(path);
    EXPECT_EQ(Create()->Created(), 2) << "loaded anew below its objects";
}

TEST_F(SelfRegistration, LeavesToTheLoaderWhatItCannotUnload) {
    const std::wstring path = *hx::FromUtf8(component);
    EXPECT_EQ(hx::UnregisterComponentLibrary(path), S_OK);
    CoFreeUnusedLibraries();
    EXPECT_TRUE(IsLoaded(component)) << "it is locked";
    EXPECT_EQ(hx::UnregisterComponentLibrary(path), E_FAIL) << "an exception is a failure";
    CoFreeUnusedLibraries();
    EXPECT_FALSE(IsLoaded(component));
}

TEST(ClassLookup, ReadsTheTablesBesideThePlatformLibrary) {
    BesideThePlatformLibrary(Line(CLSID_Unlisted, "Hx.Beside", "beside.so"), [] {
        const auto entry = hx::ClassLookup()->ByClsid(CLSID_Unlisted);
        ASSERT_TRUE(entry);
        EXPECT_EQ(hx::ToUtf8(entry->library), hx::ThisLibraryFolder() / "beside.so");
        std::filesystem::remove(hx::ThisLibraryFolder() / "test.classes");
        EXPECT_TRUE(hx::ClassLookup()->ByClsid(CLSID_Unlisted)) << "read once";
        hx::SetClassLookup(nullptr);
        EXPECT_FALSE(hx::ClassLookup()->ByClsid(CLSID_Unlisted)) << "read anew";
    });
}

TEST(ClassFiles, ListsClassesAndSkipsBadLines) {
    const TemporaryFolder folder;
    folder.Write("b.classes", Line(CLSID_Tally, "Hx.Shadowed", "late.so"));
    folder.Write("a.classes",
                 "\xEF\xBB\xBF# comment\n"
                 "{C0000000-0000-0000-0000-0000000000A1}\tHx.Tally.2\tHx.Tally\tBoth\tone.so\r\n"
                 "{C0000000-0000-0000-0000-0000000000A2}\tHx.\xC3\x84.1\t\t\t/opt/two.so\n"
                 "\n"
                 "not a GUID\tHx.Bad.1\t\t\tbad.so\n"
                 "{C0000000-0000-0000-0000-0000000000B1}\n"
                 "{C0000000-0000-0000-0000-0000000000B2}\tHx.Bad.2\t\tbad.so\n"
                 "{C0000000-0000-0000-0000-0000000000B3}\tHx.Bad.3\t\t\tbad.so\tmore\n"
                 "{C0000000-0000-0000-0000-0000000000B5}\tHx.Bad.5\t\t\t\n"
                 "{C0000000-0000-0000-0000-0000000000B6}\tHx.\xFF.6\t\t\tbad.so\n"
                 "{C0000000-0000-0000-0000-0000000000A3}\tHx.Last.1\tHx.Last\tApartment\tsub/three.so");
    const auto lookup = hx::ReadClassFiles(folder.path());
    const auto all = lookup->All();
    ASSERT_EQ(all.size(), 3u);
    const std::wstring base = *hx::FromUtf8(folder.path().native()) + L"/";
    EXPECT_TRUE(all[0].version_independent_prog_id == L"Hx.Tally" && all[0].threading_model == L"Both");
    EXPECT_EQ(all[0].library, base + L"one.so");
    EXPECT_TRUE(all[1].prog_id == L"Hx.\u00C4.1" && all[1].library == L"/opt/two.so");
    EXPECT_EQ(all[2].library, base + L"sub/three.so");
    EXPECT_EQ(lookup->ByClsid(CLSID_Tally)->prog_id, L"Hx.Tally.2");
    EXPECT_EQ(lookup->ByProgId(L"hx.last"), CLSID_NoFile);
    EXPECT_FALSE(lookup->ByProgId(L"")) << "an empty field names no class";
}

}  // namespace
