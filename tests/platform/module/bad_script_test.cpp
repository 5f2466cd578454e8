// What is no script, and where.
#include <gtest/gtest.h>

#include "platform/module/resources.h"

namespace {

void ExpectRefused(const std::wstring& script, uint32_t line, const std::wstring& text) {
    hx::ResourceError error;
    EXPECT_FALSE(hx::ReadResourceScript(script, error)) << testing::PrintToString(script.substr(0, 200));
    EXPECT_EQ(error.line, line) << testing::PrintToString(script.substr(0, 200));
    EXPECT_EQ(error.text, text) << testing::PrintToString(script.substr(0, 200));
}

struct Row {
    std::wstring script;
    uint32_t line;
    std::wstring text;
};

TEST(BadScript, OfWordsAndNumbers) {
    const Row rows[] = {
        {L"\n\n  ?", 3, L"the character \"?\" has no meaning here"},
        {L"\u00E4", 1, L"the character U+00E4 has no meaning here"},
        {std::wstring(1, L'\0'), 1, L"the character U+0000 has no meaning here"},
        {L"/* \n */\n /* \n", 3, L"a comment that begins here has no \"*/\""},
        {L"12x MENU", 1, L"\"12x\" is no number: expected decimal digits, or 0x and hexadecimal ones"},
        {L"0x MENU", 1, L"\"0x\" is no number: it has no digits"},
        {L"010 MENU", 1, L"\"010\" is no number: a decimal number has no leading zero"},
        {L"4294967296", 1, L"\"4294967296\" is no number: it has more than 32 bits"},
        {L"0xFFFFFFFF + 1 MENU", 1, L"the sum has more than 32 bits"},
        {L"65536 MENU", 1, L"expected STRINGTABLE or the id of a resource from 1 to 65535, found 65536"},
        {L"0 MENU", 1, L"expected STRINGTABLE or the id of a resource from 1 to 65535, found 0"},
        {L"(NOT 1) MENU", 1,
         L"expected STRINGTABLE or the id of a resource from 1 to 65535, found a style with NOT"},
        {L"IDR_X MENU", 1,
         L"expected STRINGTABLE or the id of a resource, found \"IDR_X\", a name that is not defined"},
        {L"\"text\" \n", 1, L"expected STRINGTABLE or the id of a resource, found the text \"text\""},
        {L"5 ICON", 1, L"expected DIALOGEX, MENU, VERSIONINFO, REGISTRY or BITMAP, found \"ICON\""},
        {L"2 BITMAP \"toolbox.bmp\"", 1, L"only a module itself holds bitmaps"},
        {L"5", 1, L"expected DIALOGEX, MENU, VERSIONINFO, REGISTRY or BITMAP, found the end of the script"},
        {std::wstring(40, L'(') + L"1", 1, L"the number has too many parentheses and signs"},
        {std::wstring(1000000, L'-') + L"1", 1, L"the number has too many parentheses and signs"},
    };
    for (const Row& row : rows) ExpectRefused(row.script, row.line, row.text);
}

TEST(BadScript, OfTexts) {
    const std::wstring too_many_digits =
        L"an escape has too many digits; expected the character itself, or L\"...\" with \\x and 4 "
        L"hexadecimal "
        L"digits";
    const std::wstring unknown =
        L"a text holds an unknown escape; expected \\n, \\r, \\t, \\\\, \\\", \\x and hexadecimal digits, or "
        L"\\ and "
        L"octal digits";
    const std::wstring too_long = L"a text has more than 65535 characters";
    const std::wstring half = L"a text holds half of a surrogate pair";
    const Row rows[] = {
        {L"\"abc\n\"", 2, L"a text has no closing quote in its line"},
        {L"\"abc\r\n\"", 2, L"a text has no closing quote in its line"},
        {L"\"abc\\", 2, unknown},
        {L"\"abc\\\"", 2, L"a text has no closing quote in its line"},
        {L"\"\\q\"", 2, unknown},
        {L"\"\\x\"", 2, unknown},
        {L"\"\\8\"", 2, unknown},
        {LR"("\x00e4")", 2, too_many_digits},
        {LR"("\xe4")", 2, too_many_digits},
        {LR"(L"\1011")", 2, too_many_digits},
        {L"\"a\x01\"", 2, L"a text holds U+0001, which is no printable character"},
        {LR"(L"\xD83D")", 2, half},
        {L"\"a\"\nL\"\\xDE00\"", 2, half},
        {L"\"" + std::wstring(65536, L'x') + L"\"", 2, too_long},
        {L"\"" + std::wstring(32768, L'\U0001F600') + L"\"", 2, too_long},
        {L"\"" + std::wstring(65535, L'x') + L"\" \"y\"", 2, too_long},
    };
    for (const Row& row : rows) ExpectRefused(L"STRINGTABLE {\n1 " + row.script + L"}", row.line, row.text);
}

TEST(BadScript, OfDirectives) {
    const Row rows[] = {
        {L"#", 1, L"expected a directive, found the end of the line"},
        {L"#ifdef X", 1, L"expected #define, #include or #pragma, found \"ifdef\""},
        {L"\n#pragma code_page(1252)", 2, L"expected the code page 65001 (UTF-8), found \"1252\""},
        {L"#define\nA 5", 1, L"expected a name to define, found the end of the line"},
        {L"#define 5 5", 1, L"expected a name to define, found \"5\""},
        {L"#define A\n5", 1, L"expected a number to define, found the end of the line"},
        {L"#define A \"x\"", 1, L"expected a number to define, found the text \"x\""},
        {L"#define A B", 1, L"expected a number to define, found \"B\", a name that is not defined"},
        {L"#define A (5\n)", 1, L"expected \")\", found the end of the line"},
        {L"#define A 5 + 1", 1, L"expected nothing behind the number to define"},
        {L"#define A 5\n#define A 6", 2, L"the name \"A\" is already known with another value"},
        {L"#define IDOK 2", 1, L"the name \"IDOK\" is already known with another value"},
        {L"5 #define A 1", 1, L"expected DIALOGEX, MENU, VERSIONINFO, REGISTRY or BITMAP, found \"#\""},
    };
    for (const Row& row : rows) ExpectRefused(row.script, row.line, row.text);
}

TEST(BadScript, OfResources) {
    const std::wstring dialog = L"5 DIALOGEX 0, 0, 9, 9\n{\n";
    const Row rows[] = {
        {L"STRINGTABLE 5", 1, L"expected BEGIN of the strings, found \"5\""},
        {L"STRINGTABLE\nBEGIN\n5 \"a\"\n", 4, L"the block that begins in line 2 has no END"},
        {L"STRINGTABLE {\n5 6 }", 2, L"expected the text of a string, found \"6\""},
        {L"STRINGTABLE {\n-1 \"a\" }", 2, L"expected the id of a string from 0 to 65535, found -1"},
        {L"STRINGTABLE {\n5 \"a\"\n6 \"b\" }\nSTRINGTABLE { 5 \"c\" }", 4,
         L"the string 5 is there already, in line 2"},
        {dialog + L"}\n" + dialog + L"}", 4, L"the dialog 5 is there already, in line 1"},
        {L"5 DIALOGEX 0, 0, 9\n{ }", 2, L"expected \",\", found \"{\""},
        {L"5 DIALOGEX 0, 0, 9, -9", 1, L"expected a height from 0 to 32767, found -9"},
        {L"5 DIALOGEX 0, 0, 9, 9\nTITLE \"x\"", 2,
         L"expected a statement of the dialog or BEGIN, found \"TITLE\""},
        {L"5 DIALOGEX 0, 0, 9, 9\nFONT 8", 2, L"expected \",\", found the end of the script"},
        {L"5 DIALOGEX 0, 0, 9, 9\nSTYLE WS_CHILDREN", 2,
         L"expected a style, found \"WS_CHILDREN\", a name that is not defined"},
        {dialog + L"SLIDER 1", 3,
         L"expected a control (CONTROL, LTEXT, PUSHBUTTON, ...) or END, found \"SLIDER\""},
        {dialog + L"LTEXT 1, 2", 3, L"expected the text of a control, found \"1\""},
        {dialog + L"EDITTEXT 70000,1,2,3,4", 3,
         L"expected the id of a control from -1 to 65535, found 70000"},
        {dialog + L"EDITTEXT 7,1,2,3,40000", 3, L"expected a height from 0 to 32767, found 40000"},
        {dialog + L"EDITTEXT 7,1,2,3,4\nLTEXT \"a\",7,1,2,3,4", 4,
         L"the dialog has two controls with the id 7"},
        {dialog + L"CONTROL \"\", 1, \"\", 0, 0, 0, 0, 0", 3,
         L"expected a window class, found an empty text"},
        {dialog + L"CONTROL \"\", 1, 128, 0, 0, 0, 0, 0", 3, L"expected a window class, found \"128\""},
        {L"5 MENU {\n}", 2, L"expected MENUITEM, POPUP or END, found \"}\""},
        {L"5 MENU {\nMENUITEM \"a\" }", 2, L"expected \",\", found \"}\""},
        {L"5 MENU {\nMENUITEM \"a\", 1,\n}", 3,
         L"expected a flag (GRAYED, INACTIVE, CHECKED, ...), found \"}\""},
        {L"5 MENU { MENUITEM SEPARATOR }\n5 MENU", 2, L"the menu 5 is there already, in line 1"},
        {L"2 VERSIONINFO { }", 1, L"version information has the id 1 (VS_VERSION_INFO)"},
        {L"1 VERSIONINFO { }\n1 VERSIONINFO { }", 2,
         L"the version information 1 is there already, in line 1"},
        {L"1 VERSIONINFO {\nBLOCK \"x\" { } }", 2, L"expected BLOCK \"StringFileInfo\" or \"VarFileInfo\""},
        {L"1 VERSIONINFO { BLOCK \"StringFileInfo\" { BLOCK \"0\" { VALUE \"a\", \"b\"\nVALUE \"a\", \"c\" } "
         L"} }",
         2, L"the value \"a\" is there already"},
    };
    for (const Row& row : rows) ExpectRefused(row.script, row.line, row.text);
}

std::wstring Repeated(const std::wstring& text, size_t times) {
    std::wstring all;
    for (size_t i = 0; i < times; ++i) all += text;
    return all;
}

// Deep and large input ends in an error, and in time that grows with its size.
TEST(BadScript, OfFoolishSize) {
    constexpr size_t kMany = 1000000;
    ExpectRefused(L"5 MENU\n" + Repeated(L"{ POPUP \"\"\n", kMany), 34,
                  L"menus are nested more than 32 deep");
    ExpectRefused(Repeated(L"#define A 1\n", kMany) + L"?", kMany + 1,
                  L"the character \"?\" has no meaning here");
    ExpectRefused(Repeated(L"5", kMany), 1,
                  L"\"" + std::wstring(60, L'5') + L"\" is no number: it has more than 32 bits");
    const std::wstring longest = L"\"" + std::wstring(65535, L'x') + L"\"";
    ExpectRefused(L"STRINGTABLE { 1 " + longest + Repeated(L" \"\"", kMany), 1,
                  L"the block that begins in line 1 has no END");
    ExpectRefused(L"5 DIALOGEX 0,0,0,0 {" + Repeated(L"\nEDITTEXT -1,0,0,0,0", 65536), 65537,
                  L"the dialog has more than 65535 controls");
    const std::wstring name = std::wstring(kMany, L'N');
    ExpectRefused(name, 1,
                  L"expected STRINGTABLE or the id of a resource, found \"" + name.substr(0, 60) +
                      L"...\", a name that is not defined");
}

TEST(BadScript, EveryBeginningOfAGoodOneIsReadOrRefused) {
    const std::wstring script =
        L"#define A 5\nSTRINGTABLE { A, \"x\\x41\" \"y\" }\n"
        L"A DIALOGEX 0, 0, 9, 9 CAPTION \"c\" FONT 8, \"f\" { LTEXT \"t\", 1, 0, 0, 0, 0, NOT 1 | (2) }\n"
        L"A MENU { POPUP \"p\" { MENUITEM \"i\", 1, GRAYED MENUITEM SEPARATOR } }\n"
        L"1 VERSIONINFO FILEOS 4 { BLOCK \"StringFileInfo\" { BLOCK \"040904B0\" { VALUE \"a\", \"b\" } } }";
    size_t refused = 0;
    for (size_t size = 0; size < script.size(); ++size) {
        hx::ResourceError error;
        if (hx::ReadResourceScript(script.substr(0, size), error)) continue;
        EXPECT_TRUE(error.line >= 1 && error.line <= 5) << size;
        EXPECT_FALSE(error.text.empty()) << size;
        ++refused;
    }
    EXPECT_GT(refused, script.size() * 9 / 10);
}

}  // namespace
