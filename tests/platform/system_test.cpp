// The system's messages, and numbers as files have them.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <string>

#include "platform/com/variant.h"
#include "platform/system/c_numbers.h"
#include "platform/system/message_table.h"
#include "tests/platform/temporary_folder.h"

namespace {

TEST(SystemMessage, GivesTheSystemsTexts) {
    struct Row {
        uint32_t result;
        const wchar_t* text;
    };
    const Row rows[] = {
        {0x00000000, L"The operation completed successfully.\r\n"},
        {0x80004005, L"Unspecified error\r\n"},
        {0x80070005, L"Access is denied.\r\n"},
        {0x80070057, L"The parameter is incorrect.\r\n"},
        {0x80040154, L"Class not registered\r\n"},
        {0x80020005, L"Type mismatch.\r\n"},
        {0x80040202, L"Connection attempt failed\r\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hx::SystemMessage(static_cast<HRESULT>(row.result)), row.text) << row.result;
    }
    EXPECT_FALSE(hx::SystemMessage(static_cast<HRESULT>(0xA0001234)));
}

TEST(SystemMessage, AnotherSourceMayAnswer) {
    const hx::SystemMessageSource source = [](HRESULT result) -> std::optional<std::wstring> {
        return L"code " + std::to_wstring(result);
    };
    EXPECT_EQ(hx::SetSystemMessageSource(source), nullptr);
    EXPECT_EQ(hx::SystemMessage(7), L"code 7");
    EXPECT_EQ(hx::SetSystemMessageSource(nullptr), source);
    EXPECT_EQ(hx::SystemMessage(E_FAIL), L"Unspecified error\r\n");
}

TEST(CNumbers, ReadAsMuchAsIsANumber) {
    struct Row {
        const char* text;
        double value;
        size_t length;
    };
    const Row rows[] = {
        {"-2e3x", -2000, 4}, {"  7", 7, 3},   {"1,5", 1, 1},          {"", 0, 0},
        {"x", 0, 0},         {"0x10", 16, 4}, {"1e999", HUGE_VAL, 5}, {"4.9e-324", 0x1p-1074, 8},
    };
    for (const Row& row : rows) {
        const char* end = nullptr;
        EXPECT_EQ(hx::ParseDoubleC(row.text, &end), row.value) << row.text;
        EXPECT_EQ(static_cast<size_t>(end - row.text), row.length) << row.text;
    }
}

// A process whose host has set a locale with a comma, made for the test if the machine has none.
TEST(CNumbers, ALocaleWithACommaDoesNotMatter) {
    const TemporaryFolder folder;
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) {
        const std::string target = (folder.path() / "de_DE").string();
        const bool made =
            std::system(("localedef -i de_DE -f UTF-8 '" + target + "' >/dev/null 2>&1").c_str()) == 0;
        setenv("LOCPATH", folder.path().c_str(), 1);
        if (!made || !std::setlocale(LC_ALL, "de_DE")) GTEST_SKIP() << "no locale to be had";
    }
    EXPECT_EQ(std::strtod("1.5", nullptr), 1);
    EXPECT_EQ(hx::ParseDoubleC("1.5", nullptr), 1.5);
    VARIANT value = hx::Variant(1.5).detach();
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_BSTR), S_OK);
    EXPECT_EQ(std::wstring(value.bstrVal), L"1.5");
    EXPECT_EQ(VariantChangeType(&value, &value, 0, VT_R8), S_OK);
    EXPECT_EQ(value.dblVal, 1.5);
    std::setlocale(LC_ALL, "C");
    unsetenv("LOCPATH");
}

}  // namespace
