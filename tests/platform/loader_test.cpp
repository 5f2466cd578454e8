#include "platform/com/loader.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "platform/com/class_files.h"
#include "platform/com/comptr.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "tests/platform/temporary_folder.h"
#include "tests/platform/test_component.h"

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

TEST_F(Loader, CreatesByClass) {
    EXPECT_FALSE(IsLoaded(component));
    const auto tally = Create();
    EXPECT_TRUE(IsLoaded(component));
    EXPECT_EQ(tally->Created(), 1);
    EXPECT_EQ(Create()->Created(), 2) << "one copy of the library serves all";
}

TEST_F(Loader, FindsClassesByProgId) {
    struct Row {
        const wchar_t* prog_id;
        HRESULT result;
    };
    const Row rows[] = {
        {L"Hx.Tally.2", S_OK},
        {L"Hx.Tally", S_OK},
        {L"HX.TALLY", S_OK},
        {L"Hx.Tally.1", CO_E_CLASSSTRING},
        {L"Hx.Tall", CO_E_CLASSSTRING},
        {L"", CO_E_CLASSSTRING},
        {nullptr, E_INVALIDARG},
    };
    for (const Row& row : rows) {
        CLSID clsid = CLSID_Unlisted;
        EXPECT_EQ(CLSIDFromProgID(row.prog_id, &clsid), row.result) << &row - rows;
        EXPECT_EQ(clsid, SUCCEEDED(row.result) ? CLSID_Tally : CLSID_NULL) << &row - rows;
    }
    EXPECT_EQ(CLSIDFromProgID(L"Hx.Tally", nullptr), E_INVALIDARG);
    CLSID clsid{};
    EXPECT_EQ(CLSIDFromProgID(L"Hx.Tally", &clsid), S_OK);
    EXPECT_EQ(Create(clsid)->Created(), 1);
}

TEST_F(Loader, NamesClassesByTheProgIdWithVersion) {
    LPOLESTR prog_id = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(CLSID_Tally, &prog_id), S_OK);
    EXPECT_EQ(std::wstring(prog_id), L"Hx.Tally.2");
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Tally, nullptr), E_INVALIDARG);
    LPOLESTR none = prog_id;
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Unlisted, &none), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(none, nullptr);
    CoTaskMemFree(prog_id);
}

TEST_F(Loader, SaysWhatIsWrong) {
    struct Row {
        const char* what;
        const CLSID& clsid;
        const IID& iid;
        DWORD context;
        HRESULT result;
    };
    const Row rows[] = {
        {"unknown class", CLSID_Unlisted, IID_IUnknown, CLSCTX_INPROC_SERVER, REGDB_E_CLASSNOTREG},
        {"other process", CLSID_Tally, IID_IUnknown, CLSCTX_LOCAL_SERVER, REGDB_E_CLASSNOTREG},
        {"no context", CLSID_Tally, IID_IUnknown, 0, E_INVALIDARG},
        {"missing file", CLSID_NoFile, IID_IUnknown, CLSCTX_INPROC_SERVER, CO_E_DLLNOTFOUND},
        {"no library", CLSID_NoLibrary, IID_IUnknown, CLSCTX_INPROC_SERVER, CO_E_ERRORINDLL},
        {"no entry point", CLSID_NoEntryPoint, IID_IUnknown, CLSCTX_ALL, CO_E_ERRORINDLL},
        {"class not in library", CLSID_NotInLibrary, IID_IUnknown, CLSCTX_ALL, CLASS_E_CLASSNOTAVAILABLE},
        {"missing interface", CLSID_Tally, IID_IClassFactory, CLSCTX_ALL, E_NOINTERFACE},
    };
    for (const Row& row : rows) {
        void* out = &m_folder;
        EXPECT_EQ(CoCreateInstance(row.clsid, nullptr, row.context, row.iid, &out), row.result) << row.what;
        EXPECT_EQ(out, nullptr) << row.what;
    }
    EXPECT_FALSE(IsLoaded(no_component)) << "refused, yet kept";
    EXPECT_EQ(CoCreateInstance(CLSID_Tally, nullptr, CLSCTX_ALL, IID_ITally, nullptr), E_POINTER);
    const auto outer = Create();
    void* out = &m_folder;
    EXPECT_EQ(CoCreateInstance(CLSID_Tally, outer.get(), CLSCTX_ALL, IID_IUnknown, &out),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Loader, GivesClassFactories) {
    hx::ComPtr<IClassFactory> factory;
    EXPECT_EQ(CoGetClassObject(CLSID_Tally, CLSCTX_ALL, nullptr, IID_IClassFactory, factory.put_void()),
              S_OK);
    CoFreeUnusedLibraries();
    EXPECT_TRUE(IsLoaded(component)) << "a factory in use keeps its library";
    hx::ComPtr<ITally> tally;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_ITally, tally.put_void()), S_OK);
    void* out = &m_folder;
    EXPECT_EQ(CoGetClassObject(CLSID_NoFile, CLSCTX_ALL, nullptr, IID_IClassFactory, &out), CO_E_DLLNOTFOUND);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(CoGetClassObject(CLSID_Tally, CLSCTX_ALL, &out, IID_IClassFactory, &out), E_INVALIDARG);
    EXPECT_EQ(CoGetClassObject(CLSID_Tally, CLSCTX_ALL, nullptr, IID_IClassFactory, nullptr), E_POINTER);
}

TEST_F(Loader, UnloadsWhatNobodyUses) {
    hx::ComPtr<ITally> tally = Create();
    CoFreeUnusedLibraries();
    EXPECT_TRUE(IsLoaded(component));
    EXPECT_EQ(tally->Created(), 1);
    tally.reset();
    EXPECT_TRUE(IsLoaded(component));
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
    std::atomic<bool> stop{false};
    std::thread unloader([&] {
        while (!stop) CoFreeUnusedLibraries();
    });
    const auto churn = [this] {
        for (int i = 0; i < 300; ++i) {
            // Each leaves the library idle while still inside it: the object goes, then the factory.
            void* out = &m_folder;
            EXPECT_EQ(CoCreateInstance(CLSID_Tally, nullptr, CLSCTX_ALL, IID_IClassFactory, &out),
                      E_NOINTERFACE);
            EXPECT_EQ(CoGetClassObject(CLSID_NotInLibrary, CLSCTX_ALL, nullptr, IID_IUnknown, &out),
                      CLASS_E_CLASSNOTAVAILABLE);
        }
    };
    std::thread other(churn);
    churn();
    other.join();
    stop = true;
    unloader.join();
}

TEST_F(Loader, CreatesFromSeveralThreads) {
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int n = 0; n < 100; ++n) EXPECT_TRUE(Create());
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(Create()->Created(), 401);
}

TEST(ClassLookup, ReadsTheTablesBesideThePlatformLibrary) {
    const CLSID clsid = CLSID_Unlisted;
    const auto table = hx::ThisLibraryFolder() / ("test_" + std::to_string(getpid()) + ".classes");
    EXPECT_EQ(hx::ThisLibraryFolder(), std::filesystem::canonical(HX_BIN_DIR));
    ASSERT_FALSE(hx::WriteFileAtomically(table, Line(clsid, "Hx.Beside", "libhx_test_component.so")));
    hx::SetClassLookup(nullptr);
    const auto entry = hx::ClassLookup()->ByClsid(clsid);
    std::filesystem::remove(table);
    ASSERT_TRUE(entry);
    EXPECT_EQ(std::filesystem::canonical(hx::ToUtf8(entry->library)), std::filesystem::canonical(component));
    hx::SetClassLookup(nullptr);
    EXPECT_FALSE(hx::ClassLookup()->ByClsid(clsid)) << "read anew";
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
                 "{C0000000-0000-0000-0000-0000000000B4}\t\t\t\tbad.so\n"
                 "{C0000000-0000-0000-0000-0000000000B5}\tHx.Bad.5\t\t\t\n"
                 "{C0000000-0000-0000-0000-0000000000B6}\tHx.\xFF.6\t\t\tbad.so\n"
                 "{C0000000-0000-0000-0000-0000000000A3}\tHx.Last.1\tHx.Last\tApartment\tsub/three.so");
    folder.Write("c.other", Line(CLSID_Unlisted, "Hx.Other", "other.so"));
    const auto lookup = hx::ReadClassFiles(folder.path());
    const auto all = lookup->All();
    ASSERT_EQ(all.size(), 3u);
    const std::wstring base = *hx::FromUtf8(folder.path().native()) + L"/";
    EXPECT_TRUE(all[0].clsid == CLSID_Tally && all[0].prog_id == L"Hx.Tally.2");
    EXPECT_TRUE(all[0].version_independent_prog_id == L"Hx.Tally" && all[0].threading_model == L"Both");
    EXPECT_EQ(all[0].library, base + L"one.so");
    EXPECT_TRUE(all[1].prog_id == L"Hx.\u00C4.1" && all[1].version_independent_prog_id.empty());
    EXPECT_EQ(all[1].library, L"/opt/two.so");
    EXPECT_EQ(all[2].library, base + L"sub/three.so");
    EXPECT_EQ(lookup->ByClsid(CLSID_Tally)->prog_id, L"Hx.Tally.2");
    EXPECT_FALSE(lookup->ByClsid(CLSID_Unlisted));
    EXPECT_EQ(lookup->ByProgId(L"hx.last"), CLSID_NoFile);
    EXPECT_FALSE(lookup->ByProgId(L"")) << "an empty field names no class";
    EXPECT_TRUE(hx::ReadClassFiles(folder.path() / "missing")->All().empty());
}

}  // namespace
