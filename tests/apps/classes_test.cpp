// hxctl register, unregister and classes, and hxregister, on a registry of their own.
#include <algorithm>

#include "apps/hxctl/classes/classes_command.h"
#include "apps/hxctl/classes/key_tree.h"
#include "tests/apps/hxctl_fixture.h"
#include "tests/memory_registry.h"

namespace {

class HxctlClasses : public Hxctl {
protected:
    const std::string m_bin = HX_BIN_DIR;
    const std::string m_settings = m_bin + "/HXScannerCtrls.so";

    std::string Tree(const std::string& options = {}) const { return Run("classes --tree " + options).out; }
    Answer RunHxregister(const std::string& arguments) const { return RunProgram("hxregister", arguments); }
};

const std::string kKept = "HKEY_LOCAL_MACHINE\n  Software\n    Orvel\n      HXAPI4\n        Components\n";

TEST_F(HxctlClasses, WhatIsRegisteredIsFoundAndGoesAgain) {
    EXPECT_EQ(Tree(), "");
    std::string registered;
    for (const char* round : {"registered once", "registered again"}) {
        const Answer answer = Run("register");
        EXPECT_EQ(answer.exit, 0) << answer.err;
        EXPECT_EQ(answer.out, "registered " + m_settings + "\nregistered " + m_bin +
                                  "/HXPreview.so\nregistered " + m_bin + "/HXSimulator.so\n");
        if (registered.empty()) registered = Tree();
        EXPECT_EQ(Tree(), registered) << round;
    }
    for (const char* part : {"    {2C96F7D0-5B1E-4A83-9D47-E08A63C1B52F}\n      (default) = REG_SZ ",
                             "\n  Orvel.HXPreview.FieldOfView\n", "\n  Orvel.HXSimulator.HXApi.1\n",
                             "\n  TypeLib\n    {A9E2471D-60C8-4F35-B19A-7D03F58E2C64}\n"}) {
        EXPECT_NE(registered.find(part), std::string::npos) << part << registered;
    }
    EXPECT_TRUE(registered.ends_with(kKept)) << registered;
    EXPECT_TRUE(Tree("--json").starts_with("[\n  {\n    \"name\": \"HKEY_CLASSES_ROOT\","));

    const std::string list = Run("classes").out;
    EXPECT_EQ(std::ranges::count(list, '\n'), 12) << list;
    EXPECT_EQ(list.find(" table "), std::string::npos) << list;
    EXPECT_EQ(list.find(" no "), std::string::npos) << list;

    for (const char* round : {"unregistered once", "unregistered again"}) {
        EXPECT_EQ(Run("unregister").exit, 0) << round;
        EXPECT_EQ(Tree(), kKept) << round;
    }
    EXPECT_EQ(RunHxregister("").exit, 0);
    EXPECT_EQ(Tree(), registered) << "by hxregister";
    EXPECT_EQ(RunHxregister("-u").exit, 0);
    EXPECT_EQ(Tree(), kKept) << "by hxregister";
}

TEST_F(HxctlClasses, WhatFailsIsTold) {
    Write("none.so", "no library");
    const std::string missing = "missing.so: CO_E_DLLNOTFOUND (0x800401F8): there is no such file\n";
    Check({{"register --library missing.so", "", 1, "", "hxctl: " + missing},
           {"unregister --library missing.so", "", 1, "", "hxctl: " + missing}});
    // The platform library is one, but no component library; what follows is done all the same.
    const Answer answer = Run("register --library none.so --library '" + m_bin +
                              "/libhxplatform.so' --library '" + m_bin + "/HXPreview.so'");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.out, "registered " + m_bin + "/HXPreview.so\n");
    EXPECT_TRUE(answer.err.starts_with("hxctl: none.so: CO_E_ERRORINDLL (0x800401F9): ")) << answer.err;
    EXPECT_NE(answer.err.find("DllRegisterServer"), std::string::npos) << answer.err;

    EXPECT_EQ(RunHxregister("missing.so").err, "hxregister: " + missing);
    EXPECT_EQ(RunHxregister("missing.so").exit, 1);
    for (const char* usage : {"-x", "--unregister=yes"}) EXPECT_EQ(RunHxregister(usage).exit, 2) << usage;
    for (const char* usage : {"register x", "register --library", "classes --all", "classes x"}) {
        EXPECT_EQ(Run(usage).exit, 2) << usage;
    }
}

TEST_F(HxctlClasses, AFolderWhoseNameIsNoUtf8IsTheReason) {
    const std::filesystem::path folder = m_folder / "\xE4";
    std::filesystem::create_directory(folder);
    for (const char* file : {"hxctl", "hxregister", "libhxplatform.so.4"})
        std::filesystem::copy(std::filesystem::path(m_bin) / file, folder);
    for (const char* program : {"hxctl' register", "hxregister'"}) {
        const Answer answer = Run("--help >/dev/null; LD_LIBRARY_PATH='" + folder.string() + "' '" +
                                  folder.string() + "/" + program);
        EXPECT_EQ(answer.exit, 1);
        EXPECT_NE(
            answer.err.find("/HXPreview.so: CO_E_DLLNOTFOUND (0x800401F8): the library lies where only a "
                            "path that is no UTF-8 leads\n"),
            std::string::npos)
            << answer.err;
    }
}

TEST_F(HxctlClasses, ADamagedStoreIsTold) {
    const std::filesystem::path store = m_folder / "registry" / "machine.registry";
    std::filesystem::create_directories(store.parent_path());
    Write("registry/machine.registry", "no store");
    const Answer damaged = Run("register");
    EXPECT_EQ(damaged.exit, 0) << "another store is begun";
    EXPECT_NE(damaged.err.find(store.string() + " cannot be used"), std::string::npos) << damaged.err;
}

using ClassesInMemory = WithMemoryRegistry;

TEST_F(ClassesInMemory, AStoreThatRefusesIsNamed) {
    RefuseWrites();
    for (const auto action : {hx::RegistrationAction::kRegister, hx::RegistrationAction::kUnregister}) {
        const hxctl::Outcome refused = hxctl::RunRegistration(action, {}, false);
        EXPECT_EQ(refused.exit, 1);
        EXPECT_EQ(refused.output, "");
        for (const char* part : {"HXScannerCtrls.so: E_ACCESSDENIED (0x80070005): ",
                                 "HXSimulator.so: SELFREG_E_CLASS (0x80040201): ",
                                 ": this user has no right to the registry's store "}) {
            EXPECT_NE(refused.reason.find(part), std::string::npos) << part << " in " << refused.reason;
        }
    }
    EXPECT_EQ(hxctl::RunClassTree(true, false).output, "");
}

using KeyTree = WithMemoryRegistry;

TEST_F(KeyTree, EveryKeyAndValueIsOnALineOfItsOwn) {
    Store(kMachineRoot, L"B\\Below", L"", L"two\nlines \"quoted\"");
    Store(kMachineRoot, L"a", L"Number", 0x20191u);
    hxctl::KeyReader reader(kMachineRoot);
    const hxctl::Key key = reader.Read(L"", L"ROOT");
    EXPECT_EQ(hxctl::KeyText(key),
              "ROOT\n"
              "  a\n"
              "    Number = REG_DWORD 131473 (0x00020191)\n"
              "  B\n"
              "    Below\n"
              "      (default) = REG_SZ \"two\\nlines \\\"quoted\\\"\"\n");
    EXPECT_EQ(hxctl::KeyJson(key)["keys"][0].dump(),
              R"({"name":"a","values":[{"name":"Number","type":"REG_DWORD","value":131473}],"keys":[]})");
    EXPECT_EQ(reader.Result(), hx::RegistryResult::kDone);
}

}  // namespace
