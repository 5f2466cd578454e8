// Classes that are registered: found, and created from, before those of the text tables.
#include "platform/registry/registry_classes.h"

#include <atomic>
#include <functional>
#include <thread>

#include "platform/com/comptr.h"
#include "platform/com/loader.h"
#include "tests/memory_registry.h"
#include "tests/platform/beside_platform.h"
#include "tests/platform/registry/child_process.h"
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
    constexpr std::string_view kTable =
        "{C0000000-0000-0000-0000-0000000000A1}\tReg.Tally.1\tTable.Tally\t\tgone.so\n"
        "{C0000000-0000-0000-0000-0000000000C1}\tReg.Other.1\tReg.Other\t\tother.so\n";
    BesideThePlatformLibrary(kTable, [] {
        RegisterTally();
        const auto lookup = ClassLookup();
        EXPECT_EQ(lookup->LibraryOf(CLSID_Tally), g_component);
        EXPECT_EQ(lookup->ByClsid(CLSID_Tally)->library, g_component);
        EXPECT_EQ(lookup->ByProgId(L"Reg.Other"), CLSID_Other);
        EXPECT_EQ(lookup->ByClsid(CLSID_Other)->prog_id, L"Reg.Other.1");
        const auto all = lookup->All();
        EXPECT_EQ(std::ranges::count(all, CLSID_Tally, &ClassEntry::clsid), 1);
        EXPECT_EQ(std::ranges::count(all, CLSID_Other, &ClassEntry::clsid), 1);
    });
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

// Counts what it is asked for.
class CountedRegistry final : public ReadOnlyRegistry {
public:
    explicit CountedRegistry(const std::shared_ptr<IRegistry>& store)
        : ReadOnlyRegistry(store), m_counted(store) {}
    RegistryResult QueryValue(RegistryRoot root, std::wstring_view path, std::wstring_view name,
                              RegistryValue& value) override {
        ++queries;
        return m_counted->QueryValue(root, path, name, value);
    }
    std::optional<RegistryStamp> Stamp(RegistryRoot root) override { return m_counted->Stamp(root); }

    int queries = 0;

private:
    const std::shared_ptr<IRegistry> m_counted;
};

// One process registers the class in this library and that, and moves the store about; another one, which
// keeps it open, looks the class up after each step.
class ChangingClasses : public RegistryClassesTest {
protected:
    static constexpr int kNone = 0;
    static std::wstring Library(int number) {
        return number == kNone ? L"" : L"/lib/" + std::to_wstring(number) + L".so";
    }
    static void RegisterIn(int number, IRegistry& registry = *Registry()) {
        const std::wstring key = L"CLSID\\" + g_tally + L"\\InprocServer32";
        ASSERT_EQ(registry.CreateKey(kClasses, key), RegistryResult::kDone);
        ASSERT_EQ(registry.SetValue(kClasses, key, L"", Library(number)), RegistryResult::kDone);
    }
    void Rename(const char* from, const char* to) const {
        for (const char* const suffix : {"-wal", "-shm", ""})
            std::filesystem::rename(File(from).string() + suffix, File(to).string() + suffix);
    }

    // Steps give what is registered after them.
    void ExpectSeen(const std::vector<std::function<int()>>& steps, bool by_operator) {
        int orders[2], answers[2];
        ASSERT_TRUE(pipe(orders) == 0 && pipe(answers) == 0);
        const pid_t child = StartChild([&] {
            close(orders[1]);
            if (by_operator) {
                ASSERT_EQ(setuid(65534), 0);
            }
            const auto counted = std::make_shared<CountedRegistry>(Open());
            SetRegistry(counted);
            for (int number = kNone, step = 0; read(orders[0], &number, sizeof number) > 0; ++step) {
                for (int i = 0; i < 4; ++i) {
                    if (i == 3) counted->queries = 0;
                    EXPECT_EQ(m_lookup->LibraryOf(CLSID_Tally).value_or(L""), Library(number)) << step;
                }
                // Without a store there is nothing to keep by.
                const bool is_kept = counted->Stamp(kClasses).has_value();
                EXPECT_EQ(is_kept, std::filesystem::exists(MachineFile()))
                    << step << (by_operator ? " by an operator" : "");
                EXPECT_EQ(counted->queries, is_kept ? 0 : 1) << step;
                EXPECT_EQ(write(answers[1], "", 1), 1);
            }
        });
        close(answers[1]);
        for (const auto& step : steps) {
            const int number = step();
            char answer = 0;
            ASSERT_EQ(write(orders[1], &number, sizeof number), ssize_t{sizeof number});
            ASSERT_EQ(read(answers[0], &answer, 1), 1) << "the other process has given up";
        }
        close(orders[1]);
        ExpectSuccess(child);
        close(orders[0]);
        close(answers[0]);
    }
};

TEST_F(ChangingClasses, AreSeenByOthersAtOnce) {
    int number = kNone;
    const auto register_anew = [&] {
        RegisterIn(++number);
        return number;
    };
    const auto close_store = [&] {
        SetRegistry(Open());
        return number;
    };
    const std::vector<std::function<int()>> steps = {
        [&] { return number; },  // no store yet
        register_anew,
        register_anew,
        [&] {
            Execute("PRAGMA wal_checkpoint(TRUNCATE)");
            return number;
        },
        register_anew,
        [&] {  // the log begins anew several times
            for (int i = 0; i < 1500; ++i) RegisterIn(++number);
            return number;
        },
        close_store,
        register_anew,
        close_store,
        [&] {
            RegisterIn(++number, *Open());
            return number;
        },
        [&] {
            EXPECT_EQ(Registry()->DeleteKey(kClasses, L"CLSID"), RegistryResult::kDone);
            return kNone;
        },
        register_anew,
        [&] {
            // Who has no right to write tells no changes of a log that it finds alone.
            Execute("PRAGMA wal_checkpoint(TRUNCATE)");
            SetRegistry(Open());
            Rename("machine", "moved");
            return kNone;
        },
        [&] {
            Rename("moved", "machine");
            return number;
        },
        [&] {
            RegisterIn(++number, *OpenRegistryStore(File("fresh"), File("user")));
            Rename("fresh", "machine");
            return number;
        },
        register_anew,
        [&] {
            SetRegistry(Open());
            Rename("machine", "gone");
            return kNone;
        },
    };
    ExpectSeen(steps, false);
    if (geteuid() != 0) return;
    for (const char* const file : {"moved", "gone"}) std::filesystem::remove_all(File(file));
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms{0755});
    number = kNone;
    ExpectSeen(steps, true);
}

TEST_F(ChangingClasses, AreNeverSeenAsTheyWereByThreads) {
    constexpr int kThreads = 8, kChanges = 400;
    for (const auto& registry : {Open(), MakeMemoryRegistry()}) {
        SetRegistry(registry);
        RegisterIn(1);
        std::atomic<int> registered = 1;
        std::vector<std::thread> threads;
        for (int i = 0; i < kThreads; ++i) {
            threads.emplace_back([&] {
                for (int before = 0; before < kChanges;) {
                    before = registered;
                    const auto library = m_lookup->LibraryOf(CLSID_Tally);
                    ASSERT_TRUE(library);
                    EXPECT_GE(std::stoi(library->substr(5)), before);
                }
            });
        }
        for (int i = 2; i <= kChanges; ++i) {
            RegisterIn(i);
            registered = i;
        }
        for (std::thread& thread : threads) thread.join();
    }
}

TEST_F(ChangingClasses, AreNotMixedUp) {
    for (const auto& registry : {Open(), MakeMemoryRegistry(), MakeMemoryRegistry()}) {
        SetRegistry(registry);
        EXPECT_FALSE(m_lookup->LibraryOf(CLSID_Tally));
        RegisterIn(1);
        Write(L"CLSID\\" + g_other + L"\\InprocServer32", L"/lib/other.so");
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(m_lookup->LibraryOf(CLSID_Tally), Library(1));
            EXPECT_EQ(m_lookup->LibraryOf(CLSID_Other), L"/lib/other.so");
            EXPECT_FALSE(m_lookup->LibraryOf(CLSID_NULL));
        }
        // More of them than are kept.
        for (uint32_t i = 1; i < 1000; ++i) EXPECT_FALSE(m_lookup->LibraryOf({i, 0, 0, {}})) << i;
        EXPECT_EQ(m_lookup->LibraryOf(CLSID_Tally), Library(1));
    }
}

}  // namespace
}  // namespace hx
