// Classes that are registered: found, and created from, before those of the text tables.
#include "platform/registry/registry_classes.h"

#include "platform/com/comptr.h"
#include "platform/com/loader.h"
#include "platform/system/files.h"
#include "tests/platform/registry/store_fixture.h"
#include "tests/platform/test_component.h"

namespace hx {
namespace {

constexpr RegistryRoot kClasses = RegistryRoot::kClassesRoot;
constexpr CLSID CLSID_Other = MakeGuid("C0000000-0000-0000-0000-0000000000C1");
const std::wstring g_tally = GuidToText(CLSID_Tally);
const std::wstring g_other = GuidToText(CLSID_Other);
const std::wstring g_component =
    std::filesystem::path(std::string(HX_BIN_DIR) + "/libhx_test_component.so").wstring();

class RegistryClassesTest : public StoreTest {
protected:
    RegistryClassesTest() {
        SetRegistry(Open());
        SetClassLookup(nullptr);
    }
    ~RegistryClassesTest() override {
        SetClassLookup(nullptr);
        SetRegistry(MakeMemoryRegistry());
        CoFreeUnusedLibraries();
    }

    static void Write(const std::wstring& path, const RegistryValue& value, const std::wstring& name = L"") {
        EXPECT_EQ(Registry()->CreateKey(kClasses, path), RegistryResult::kDone);
        EXPECT_EQ(Registry()->SetValue(kClasses, path, name, value), RegistryResult::kDone);
    }
    static void RegisterTally() {
        Write(L"Reg.Tally.1", L"Tally Class");
        Write(L"Reg.Tally.1\\CLSID", g_tally);
        Write(L"Reg.Tally\\CLSID", g_tally);
        Write(L"Reg.Tally\\CurVer", L"Reg.Tally.1");
        const std::wstring key = L"CLSID\\" + g_tally;
        Write(key, L"Tally Class");
        Write(key + L"\\ProgID", L"Reg.Tally.1");
        Write(key + L"\\VersionIndependentProgID", L"Reg.Tally");
        Write(key + L"\\InprocServer32", g_component);
        Write(key + L"\\InprocServer32", L"Both", L"ThreadingModel");
        Write(key + L"\\TypeLib", g_other);
    }
    const std::shared_ptr<IClassLookup> m_lookup = MakeRegistryClassLookup();
};

TEST_F(RegistryClassesTest, AreReadAsTheyAreRegistered) {
    EXPECT_TRUE(m_lookup->All().empty() && !m_lookup->ByClsid(CLSID_Tally) &&
                !m_lookup->ByProgId(L"Reg.Tally"));
    RegisterTally();
    ASSERT_EQ(m_lookup->All().size(), 1u);
    for (const ClassEntry& entry : {*m_lookup->ByClsid(CLSID_Tally), m_lookup->All()[0]}) {
        EXPECT_EQ(entry.clsid, CLSID_Tally);
        EXPECT_EQ(entry.prog_id, L"Reg.Tally.1");
        EXPECT_EQ(entry.version_independent_prog_id, L"Reg.Tally");
        EXPECT_EQ(entry.threading_model, L"Both");
        EXPECT_EQ(entry.library, g_component);
    }
    EXPECT_EQ(m_lookup->LibraryOf(CLSID_Tally), g_component);
    EXPECT_EQ(m_lookup->ByProgId(L"REG.TALLY.1"), CLSID_Tally);
    EXPECT_EQ(m_lookup->ByProgId(L"reg.tally"), CLSID_Tally);
    Registry()->DeleteKey(kClasses, L"Reg.Tally\\CLSID");
    EXPECT_EQ(m_lookup->ByProgId(L"Reg.Tally"), CLSID_Tally) << "by its current version";
    for (const wchar_t* const none :
         {L"", L"Reg", L"Reg.Tally.2", L"\\Reg.Tally", L"Reg.Tally.1\\CLSID", L"CLSID"}) {
        EXPECT_FALSE(m_lookup->ByProgId(none)) << std::filesystem::path(none);
    }
}

TEST_F(RegistryClassesTest, AreMadeOutOfTheirLibrary) {
    RegisterTally();
    CLSID clsid{};
    EXPECT_EQ(CLSIDFromProgID(L"Reg.Tally", &clsid), S_OK);
    ComPtr<ITally> tally;
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_ITally, tally.put_void()), S_OK);
    EXPECT_TRUE(tally);
    LPOLESTR prog_id = nullptr;
    Registry()->DeleteKey(kClasses, L"CLSID\\" + g_tally + L"\\ProgID");
    EXPECT_EQ(ProgIDFromCLSID(CLSID_Tally, &prog_id), REGDB_E_CLASSNOTREG) << "a class may lack one";
}

TEST_F(RegistryClassesTest, ComeBeforeThoseOfTheTables) {
    const auto table = ThisLibraryFolder() / ("registry_test_" + std::to_string(getpid()) + ".classes");
    ASSERT_FALSE(
        WriteFileAtomically(table,
                            "{C0000000-0000-0000-0000-0000000000A1}\tReg.Tally.1\tTable.Tally\t\tgone.so\n"
                            "{C0000000-0000-0000-0000-0000000000C1}\tReg.Other.1\tReg.Other\t\tother.so\n"));
    RegisterTally();
    const auto lookup = ClassLookup();
    std::filesystem::remove(table);
    EXPECT_EQ(lookup->LibraryOf(CLSID_Tally), g_component);
    EXPECT_EQ(lookup->ByClsid(CLSID_Tally)->library, g_component);
    EXPECT_EQ(lookup->ByProgId(L"Reg.Other"), CLSID_Other);
    EXPECT_EQ(lookup->ByClsid(CLSID_Other)->prog_id, L"Reg.Other.1");
    const auto all = lookup->All();
    EXPECT_EQ(std::ranges::count(all, CLSID_Tally, &ClassEntry::clsid), 1);
    EXPECT_EQ(std::ranges::count(all, CLSID_Other, &ClassEntry::clsid), 1);
}

TEST_F(RegistryClassesTest, MalformedEntriesArePassedOver) {
    RegisterTally();
    const RegistryValue libraries[] = {
        L"", L"lib.so", L"./lib.so", L"../lib.so", std::wstring(L"/a\0b", 4), L" /lib.so", 7u};
    for (const RegistryValue& library : libraries) {
        Write(L"CLSID\\" + g_other + L"\\InprocServer32", library);
        EXPECT_FALSE(m_lookup->ByClsid(CLSID_Other)) << &library - libraries;
        EXPECT_FALSE(m_lookup->LibraryOf(CLSID_Other)) << &library - libraries;
        EXPECT_EQ(m_lookup->All().size(), 1u) << &library - libraries;
    }
    const RegistryValue clsids[] = {L"", L"{C0000000}", g_tally + L" ", 7u};
    for (const RegistryValue& clsid : clsids) {
        Write(L"Reg.Bad\\CLSID", clsid);
        EXPECT_FALSE(m_lookup->ByProgId(L"Reg.Bad")) << &clsid - clsids;
    }
    Write(L"Reg.Loop\\CurVer", L"Reg.Loop");
    EXPECT_FALSE(m_lookup->ByProgId(L"Reg.Loop"));
    Write(L"CLSID\\no class\\InprocServer32", g_component);
    Write(L"CLSID\\" + g_tally.substr(1, 36) + L"\\InprocServer32", g_component);
    EXPECT_EQ(m_lookup->All().size(), 1u);
}

}  // namespace
}  // namespace hx
