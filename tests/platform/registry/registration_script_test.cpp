// What registration scripts make of the registry, which texts are none, and the scripts of this library.
#include "platform/registry/registration_script.h"

#include <rapidcheck.h>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/module/this_module.h"
#include "tests/memory_registry.h"

namespace hx {
namespace {

using Action = RegistrationAction;

constexpr RegistrationReplacement kReplacements[] = {
    {L"MODULE", L"/opt/a b.so"}, {L"WORD", L"NoRemove"}, {L"NUMBER", L"17"}, {L"SIGNS", L"%WORD% '{ }' \\"}};

// "A\B:name=value": a line for each value below the key and each key without any.
void Collect(IRegistry& registry, RegistryRoot root, const std::wstring& path, std::wstring& lines) {
    std::vector<NamedRegistryValue> values;
    std::vector<std::wstring> names;
    registry.ListValues(root, path, values);
    registry.ListKeys(root, path, names);
    for (const auto& [name, value] : values) {
        lines += path + L":" + name + L"=";
        const auto* const text = std::get_if<std::wstring>(&value);
        lines += (text ? *text : L"#" + std::to_wstring(std::get<uint32_t>(value))) + L"\n";
    }
    if (values.empty() && names.empty() && !path.empty()) lines += path + L"\n";
    for (const std::wstring& name : names)
        Collect(registry, root, path.empty() ? name : path + L"\\" + name, lines);
}

class RegistrationScripts : public WithMemoryRegistry {
protected:
    static std::wstring Content(IRegistry& registry) {
        std::wstring lines;
        for (const RegistryRoot root : {RegistryRoot::kClassesRoot, kMachineRoot, kUserRoot})
            Collect(registry, root, {}, lines);
        return lines;
    }
    // Twice, which is the same as once.
    std::wstring ContentAfter(Action action, const std::wstring& script) const {
        RegistrationError error;
        std::wstring content;
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(RunRegistrationScript(*m_registry, script, kReplacements, action, error), S_OK)
                << error.line << ": " << testing::PrintToString(error.text);
            EXPECT_TRUE(i == 0 || Content(*m_registry) == content) << "the second time";
            content = Content(*m_registry);
        }
        return content;
    }
};

TEST_F(RegistrationScripts, MakeAndDeleteKeysAndValues) {
    const struct {
        std::wstring script;
        std::wstring registered;
        std::wstring unregistered;
    } rows[] = {
        {L"\uFEFFhkcr { A }\r\nHKEY_LOCAL_MACHINE { B { C } }\nHKCU\n{ 'x y' }", L"A\nB\\C\nx y\n", L""},
        {L"HKCR { A = s 'it''s' { val B = d 7 val 'c d' = s e } }", L"A:=it's\nA:B=#7\nA:c d=e\n", L""},
        {L"HKCR { A = d 0xFFFFFFFF { val '' = d &h1f val B = d '010' } }", L"A:=#31\nA:B=#10\n", L""},
        {L"HKCR { 'val' = s 's' '{' Deleted 'noremove' { '=' = s '' } }",
         L"Deleted\nnoremove\\=:=\nval:=s\n{\n", L""},
        {L"HKCR { NoRemove A = s x { val B = d 1 NoRemove val C = d 2 D { NoRemove E } NoRemove F } }",
         L"A:=x\nA:B=#1\nA:C=#2\nA\\D\\E\nA\\F\n", L"A:=x\nA:C=#2\nA\\F\n"},
        {L"HKCR { val A = d 1 }", L":A=#1\n", L""},
        {L"HKCR { A { B = s x } Delete a }", L"", L""},
        {L"HKCR { A { B = s x } ForceRemove A { C } D Delete 'd' }", L"A\\C\n", L""},
        {L"HKCR { A%WORD%%% = s %MODULE% { val %WORD% = d %number% } }",
         L"ANoRemove%:=/opt/a b.so\nANoRemove%:NoRemove=#17\n", L""},
        {L"HKCR { %WORD% = s %SIGNS% { val 'x%SIGNS%' = s '%%MODULE%%' } }",
         L"NoRemove:=%WORD% '{ }' \\\nNoRemove:x%WORD% '{ }' \\=%MODULE%\n", L""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.script));
        m_registry = MakeMemoryRegistry();
        EXPECT_EQ(ContentAfter(Action::kRegister, row.script), row.registered);
        EXPECT_EQ(ContentAfter(Action::kUnregister, row.script), row.unregistered);
    }
}

TEST_F(RegistrationScripts, LeaveWhatOthersHaveMade) {
    const auto root = RegistryRoot::kClassesRoot;
    Store(root, L"CLSID\\{2}", L"", L"theirs");
    Store(root, L"CLSID\\{1}\\Old", L"", L"ours");
    const std::wstring script = L"HKCR { NoRemove CLSID { ForceRemove {1} = s x } }";
    EXPECT_EQ(ContentAfter(Action::kRegister, script), L"CLSID\\{1}:=x\nCLSID\\{2}:=theirs\n");
    Store(root, L"CLSID\\{1}\\New", L"", L"theirs, too");
    EXPECT_EQ(ContentAfter(Action::kUnregister, script), L"CLSID\\{2}:=theirs\n");
}

TEST_F(RegistrationScripts, AreRefusedWithThePlaceBeforeAnythingChanges) {
    std::wstring deep;
    for (size_t i = 0; i < kMaxRegistryDepth; ++i) deep += L" {\nA";
    const struct {
        std::wstring script;
        uint32_t line;
        std::wstring text;
    } rows[] = {
        {L"", 1, L"expected HKCR, HKLM, HKCU or one of their long names, found the end of the script"},
        {L"\nHKXX {", 2, L"expected HKCR, HKLM, HKCU or one of their long names, found \"HKXX\""},
        {L"'HKCR' { }", 1, L"expected HKCR, HKLM, HKCU or one of their long names, found \"HKCR\""},
        {L"HKCR\nA", 2, L"expected \"{\" behind the root, found \"A\""},
        {L"HKCR { A {\nB } }\n}", 3, L"expected HKCR, HKLM, HKCU or one of their long names, found \"}\""},
        {L"HKCR {\nA\n{ B", 3, L"a \"{\" here has no \"}\""},
        {L"HKCR { { } }", 1, L"expected the name of a key or \"}\", found \"{\""},
        {L"HKCR { NoRemove\n}", 2, L"expected the name of a key or \"}\", found \"}\""},
        {L"HKCR { A = s }", 1, L"expected a text, found \"}\""},
        {L"HKCR { A = 'x' }", 1, L"expected s and a text, or d and a number, found \"x\""},
        {L"HKCR { A =\nb 01 }", 2,
         L"a value of the kind \"b\": the registry holds texts (s) and numbers (d) only"},
        {L"HKCR { val A = m 'x' }", 1,
         L"a value of the kind \"m\": the registry holds texts (s) and numbers (d) only"},
        {L"HKCR { val A = E 'x' }", 1,
         L"a value of the kind \"e\": the registry holds texts (s) and numbers (d) only"},
        {L"HKCR { A = d 4294967296 }", 1, L"expected a number of 32 bits, found \"4294967296\""},
        {L"HKCR { A = d %WORD% }", 1, L"expected a number of 32 bits, found \"NoRemove\""},
        {L"HKCR { A = d 0x }", 1, L"expected a number of 32 bits, found \"0x\""},
        {L"HKCR { val A s 'x' }", 1, L"expected \"=\" behind the name of a value, found \"s\""},
        {L"HKCR { ForceRemove val A = d 1 }", 1, L"no mark but NoRemove stands before a value"},
        {L"HKCR { ForceRemove NoRemove A }", 1,
         L"expected a name behind the mark of a key, which has one, found \"NoRemove\""},
        {L"HKCR { Delete A { B } }", 1, L"expected nothing of a key that is deleted, found \"{\""},
        {L"HKCR { '' }", 1, L"a key has no name"},
        {L"HKCR { 'A\\B' }", 1, L"the name of a key holds a \"\\\": \"A\\B\""},
        {L"HKCR { %SIGNS% }", 1, L"the name of a key holds a \"\\\": \"%WORD% '{ }' \\\""},
        {L"HKCR { A = s '\n%MISSING%' }", 1, L"a text has no closing ' in its line"},
        {L"HKCR { A = s\n'%MISSING%' }", 2, L"there is no replacement for \"%MISSING%\""},
        {L"HKCR { A = s '50% of' }", 1, L"a % in \"50% of\" begins no %NAME%; by itself it is written twice"},
        {L"HKCR { A = s 'it's' }", 1, L"no blank behind the text \"it\"; a ' in it is written twice"},
        {L"HKCR { A'B }", 1, L"a ' stands within the word \"A'B\""},
        {L"// comment", 1, L"a registration script has no comments"},
        {L"HKCR" + deep + L" { B", kMaxRegistryDepth + 1, L"no key lies deeper than 512"},
    };
    for (const auto& row : rows) {
        RegistrationError error;
        for (const Action action : {Action::kRegister, Action::kUnregister}) {
            EXPECT_EQ(RunRegistrationScript(*m_registry, row.script, kReplacements, action, error), E_FAIL);
        }
        EXPECT_EQ(error.line, row.line) << testing::PrintToString(row.script);
        EXPECT_EQ(error.text, row.text);
        EXPECT_EQ(Content(*m_registry), L"");
    }
}

TEST_F(RegistrationScripts, SayWhatTheRegistryRefuses) {
    Store(kMachineRoot, L"A", L"B", L"x");
    ReadOnlyRegistry refusing(m_registry);
    const struct {
        std::wstring script;
        Action action;
        std::wstring text;
    } rows[] = {
        {L"NoRemove A { C", Action::kRegister, L"the key \"HKEY_LOCAL_MACHINE\\A\" cannot be made"},
        {L"ForceRemove A { C", Action::kRegister, L"the key \"HKEY_LOCAL_MACHINE\\A\" cannot be deleted"},
        {L"val B = s '' A {", Action::kRegister,
         L"the value \"B\" of the key \"HKEY_LOCAL_MACHINE\" cannot be set"},
        {L"val '' = d 1 A {", Action::kRegister,
         L"the default value of the key \"HKEY_LOCAL_MACHINE\" cannot be set"},
        {L"NoRemove A { val C = d 1 val B = d 1", Action::kUnregister,
         L"the value \"C\" of the key \"HKEY_LOCAL_MACHINE\\A\" cannot be deleted"},
        {L"NoRemove A { 'a\tb'", Action::kUnregister,
         L"the key \"HKEY_LOCAL_MACHINE\\A\\a b\" cannot be deleted"},
    };
    for (const auto& row : rows) {
        RegistrationError error;
        EXPECT_EQ(RunRegistrationScript(refusing, L"HKLM {\n" + row.script + L" } }", {}, row.action, error),
                  E_ACCESSDENIED);
        EXPECT_EQ(error.line, 2u);
        EXPECT_EQ(error.text, row.text + L": Access is denied.");
    }
    static_assert(HresultOf(RegistryResult::kDamaged) == static_cast<HRESULT>(0x800703F1));
}

// A replacement is a value, whatever it looks like.
TEST_F(RegistrationScripts, TakeEveryReplacementAsItIs) {
    rc::check([] {
        using namespace std::string_literals;
        const auto hostile = rc::gen::container<std::wstring>(
            rc::gen::elementOf(L"%'{}=\\ \n\r\0sdvalNoRemove//\u00E4\U0001F600"s));
        const std::wstring key = *rc::gen::suchThat(hostile, [](const std::wstring& name) {
            return !name.empty() && name.find(L'\\') == std::wstring::npos;
        });
        const std::wstring value_name = L"x" + *hostile;
        const std::wstring text = *hostile;
        const RegistrationReplacement replacements[] = {
            {L"KEY", key}, {L"NAME", value_name}, {L"TEXT", text}};
        RegistrationError error;
        const auto registry = MakeMemoryRegistry();
        RC_ASSERT(RunRegistrationScript(*registry,
                                        L"HKLM { %KEY% = s %TEXT% { val %NAME% = s '%TEXT%%%%TEXT%' } }",
                                        replacements, Action::kRegister, error) == S_OK);
        RC_ASSERT(Content(*registry) ==
                  key + L":=" + text + L"\n" + key + L":" + value_name + L"=" + text + L"%" + text + L"\n");
    });
}

TEST_F(RegistrationScripts, OfThisLibraryDescribeItsClasses) {
    const ModuleHandle module = ThisModule();
    const auto run = [&](uint32_t id, Action action) {
        const std::wstring* const script = module->Registration(id);
        RegistrationError error;
        EXPECT_TRUE(script &&
                    RunRegistrationScript(*m_registry, *script, kReplacements, action, error) == S_OK)
            << id << ": " << testing::PrintToString(error.text);
    };
    EXPECT_EQ(module->Registration(103), nullptr);
    const struct {
        uint32_t id;
        CLSID clsid;
        std::wstring prog_id;
        std::wstring description;
        std::wstring threading_model;
    } rows[] = {
        {104, CLSID_CoMHXMeasSettings, kProgIdHXMeasSettings, L"CoMHXMeasSettings Class", L""},
        {105, CLSID_CoMHXSettingsFactory, kProgIdHXSettingsFactory, L"CoMHXSettingsFactory Class", L"Both"},
        {209, CLSID_CoMHXConnSettings, kProgIdHXConnSettings, L"CoMHXConnSettings Class", L""},
    };
    for (const auto& row : rows) {
        m_registry = MakeMemoryRegistry();
        const std::wstring general = row.prog_id.substr(0, row.prog_id.size() - 2);
        const std::wstring clsid = GuidToText(row.clsid);
        const std::wstring key = L"CLSID\\" + clsid;
        Store(RegistryRoot::kClassesRoot, key + L"\\InprocServer32", L"Old", L"x");
        run(row.id, Action::kRegister);
        std::wstring content = key + L":=" + row.description + L"\n";
        content += key + L"\\InprocServer32:=/opt/a b.so\n";
        if (!row.threading_model.empty())
            content += key + L"\\InprocServer32:ThreadingModel=" + row.threading_model + L"\n";
        content += key + L"\\ProgID:=" + row.prog_id + L"\n";
        content += key + L"\\TypeLib:=" + GuidToText(LIBID_HXScannerCtrls) + L"\n";
        content += key + L"\\VersionIndependentProgID:=" + general + L"\n";
        content += general + L":=" + row.description + L"\n" + general + L"\\CLSID:=" + clsid + L"\n";
        content += general + L"\\CurVer:=" + row.prog_id + L"\n";
        content += row.prog_id + L":=" + row.description + L"\n" + row.prog_id + L"\\CLSID:=" + clsid + L"\n";
        EXPECT_EQ(Content(*m_registry), content);
        run(row.id, Action::kUnregister);
        EXPECT_EQ(Content(*m_registry), L"CLSID\n");
    }
    m_registry = MakeMemoryRegistry();
    for (const Action action : {Action::kRegister, Action::kUnregister}) {
        run(202, action);
        EXPECT_EQ(Content(*m_registry), L"Software\\Orvel\\HXAPI4\\Components\n");
    }
}

}  // namespace
}  // namespace hx
