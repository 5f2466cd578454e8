// What a registry does, in memory and on disk alike.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "platform/system/case_fold.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;
using Access = RegistryAccess;

class RegistryContract : public StoreTest, public testing::WithParamInterface<bool> {
protected:
    const std::shared_ptr<IRegistry> m_registry = GetParam() ? Open() : MakeMemoryRegistry();

    RegistryValue Query(RegistryRoot root, std::wstring_view path, std::wstring_view name) const {
        RegistryValue value = L"unchanged";
        if (m_registry->QueryValue(root, path, name, value) != Result::kDone) {
            EXPECT_EQ(value, RegistryValue(L"unchanged"));
        }
        return value;
    }
    std::vector<std::wstring> Keys(RegistryRoot root, std::wstring_view path) const {
        std::vector<std::wstring> names = {L"unchanged"};
        m_registry->ListKeys(root, path, names);
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(, RegistryContract, testing::Bool(),
                         [](const auto& test) { return test.param ? "OnDisk" : "InMemory"; });

TEST_P(RegistryContract, RootsAreThereBeforeAnythingIsWritten) {
    for (const RegistryRoot root : {kUser, kMachine, RegistryRoot::kClassesRoot}) {
        EXPECT_EQ(m_registry->OpenKey(root, L"", Access::kRead), Result::kDone);
        EXPECT_TRUE(Keys(root, L"").empty());
        EXPECT_EQ(m_registry->OpenKey(root, L"A", Access::kReadWrite), Result::kNotFound);
        EXPECT_EQ(m_registry->SetValue(root, L"A", L"", 1u), Result::kNotFound);
        EXPECT_EQ(m_registry->DeleteKey(root, L"A"), Result::kNotFound);
        EXPECT_EQ(m_registry->DeleteKey(root, L"\\"), Result::kInvalid);
        EXPECT_EQ(m_registry->SetValue(root, L"", L"", 1u), Result::kDone);
        EXPECT_EQ(Query(root, L"", L""), RegistryValue(1u));
    }
    const auto unknown = static_cast<RegistryRoot>(3);
    std::vector<NamedRegistryValue> values;
    EXPECT_EQ(m_registry->CreateKey(unknown, L"A"), Result::kInvalid);
    EXPECT_EQ(m_registry->OpenKey(unknown, L"A", Access::kRead), Result::kInvalid);
    EXPECT_EQ(m_registry->ListValues(unknown, L"A", values), Result::kInvalid);
}

TEST_P(RegistryContract, NamesAreFoundWithoutCaseAndKeptAsFirstWritten) {
    EXPECT_EQ(m_registry->CreateKey(kMachine, L"Software\\\u00C4pfel"), Result::kDone);
    EXPECT_EQ(m_registry->CreateKey(kMachine, L"\\SOFTWARE\\\\\u00E4PFEL\\Inner\\"), Result::kDone);
    EXPECT_EQ(Keys(kMachine, L""), std::vector<std::wstring>{L"Software"});
    EXPECT_EQ(Keys(kMachine, L"SOFTWARE"), std::vector<std::wstring>{L"\u00C4pfel"});
    EXPECT_EQ(m_registry->SetValue(kMachine, L"software\\\u00C4PFEL", L"Gr\u00F6\u00DFe", L"1"),
              Result::kDone);
    EXPECT_EQ(m_registry->SetValue(kMachine, L"software\\\u00C4PFEL", L"GR\u00D6\u00DFE", 2u), Result::kDone);
    EXPECT_EQ(m_registry->SetValue(kMachine, L"software\\\u00C4PFEL", L"b", L""), Result::kDone);
    std::vector<NamedRegistryValue> values;
    EXPECT_EQ(m_registry->ListValues(kMachine, L"Software\\\u00C4pfel", values), Result::kDone);
    ASSERT_EQ(values.size(), 2u);
    EXPECT_TRUE(values[0].name == L"b" && values[0].value == RegistryValue(L""));
    EXPECT_TRUE(values[1].name == L"Gr\u00F6\u00DFe" && values[1].value == RegistryValue(2u));
    EXPECT_EQ(m_registry->DeleteValue(kMachine, L"Software\\\u00C4pfel", L"B"), Result::kDone);
    EXPECT_EQ(m_registry->DeleteValue(kMachine, L"Software\\\u00C4pfel", L"B"), Result::kNotFound);
    EXPECT_EQ(Query(kUser, L"Software\\\u00C4pfel", L"Gr\u00F6\u00DFe"), RegistryValue(L"unchanged"));
}

TEST_P(RegistryContract, AKeyIsDeletedWithAllBelowItAndNothingBeside) {
    // "A!" comes before "A\" and "A]" behind it; all begin with the deleted key's name.
    for (const wchar_t* const path : {L"A\\B\\C", L"A!\\B", L"A]\\B", L"AB", L"B\\A\\B"}) {
        EXPECT_EQ(m_registry->CreateKey(kMachine, path), Result::kDone);
        EXPECT_EQ(m_registry->SetValue(kMachine, path, L"v", path), Result::kDone);
    }
    EXPECT_EQ(m_registry->DeleteKey(kMachine, L"a"), Result::kDone);
    EXPECT_EQ(Keys(kMachine, L""), (std::vector<std::wstring>{L"A!", L"A]", L"AB", L"B"}));
    for (const wchar_t* const path : {L"A!\\B", L"A]\\B", L"AB", L"B\\A\\B"}) {
        EXPECT_EQ(Query(kMachine, path, L"v"), RegistryValue(path));
    }
    EXPECT_EQ(m_registry->CreateKey(kMachine, L"a\\b\\c"), Result::kDone);
    EXPECT_EQ(Query(kMachine, L"a\\b\\c", L"v"), RegistryValue(L"unchanged")) << "came back with the key";
    EXPECT_EQ(Keys(kMachine, L"A"), std::vector<std::wstring>{L"b"}) << "the name of the deleted key";
}

TEST_P(RegistryContract, AnyNameAndTextComesBack) {
    const std::wstring texts[] = {
        std::wstring(L"\0a\0", 3),
        L"\xD800\xDC00\xDFFF",
        L"\x10FFFF\x110000\x7FFFFFFF",
        std::wstring(1, wchar_t(0x80000000)),
        std::wstring(2, wchar_t(-1)),
        L"\x7F\x80\x7FF\x800\xFFFF\x10000\x1FFFFF\x200000",
        std::wstring(L"\x3FFFFFF\x4000000"),
        std::wstring(300'000, L'\u00DC'),
        L"",
    };
    for (const std::wstring& text : texts) {
        const std::wstring path = L"Any\\" + text + L"\\Inner";
        EXPECT_EQ(m_registry->CreateKey(kUser, path), Result::kDone);
        EXPECT_EQ(m_registry->SetValue(kUser, path, text, text), Result::kDone);
        EXPECT_EQ(Query(kUser, path, text), RegistryValue(text));
        std::vector<NamedRegistryValue> values;
        EXPECT_EQ(m_registry->ListValues(kUser, path, values), Result::kDone);
        EXPECT_TRUE(values.size() == 1 && values[0].name == text);
    }
    EXPECT_EQ(Keys(kUser, L"Any").size(), std::size(texts)) << "the last is no key, but the inner one is";
    EXPECT_TRUE(rc::check([this](const std::vector<uint32_t>& codes, uint32_t number) {
        const std::wstring text(codes.begin(), codes.end());
        RC_ASSERT(m_registry->CreateKey(kUser, L"Random") == Result::kDone);
        RC_ASSERT(m_registry->SetValue(kUser, L"Random", text, text) == Result::kDone);
        RC_ASSERT(Query(kUser, L"Random", FoldCase(text)) == RegistryValue(text));
        RC_ASSERT(m_registry->SetValue(kUser, L"Random", text, number) == Result::kDone);
        RC_ASSERT(Query(kUser, L"Random", text) == RegistryValue(number));
    }));
}

TEST_P(RegistryContract, KeysLieOnlySoDeep) {
    std::wstring path;
    for (size_t i = 0; i < kMaxRegistryDepth; ++i) path += L"d\\";
    EXPECT_EQ(m_registry->CreateKey(kUser, path), Result::kDone);
    EXPECT_EQ(m_registry->OpenKey(kUser, path, Access::kReadWrite), Result::kDone);
    EXPECT_EQ(m_registry->CreateKey(kUser, path + L"d"), Result::kInvalid);
    EXPECT_EQ(m_registry->OpenKey(kUser, path + L"d", Access::kRead), Result::kNotFound);
    EXPECT_EQ(m_registry->DeleteKey(kUser, L"D"), Result::kDone);
}

}  // namespace
}  // namespace hx
