// What scripts mean. The styles are those that the system's resource compiler makes of the same statements.
#include <gtest/gtest.h>

#include "platform/module/resources.h"
#include "platform/system/utf8.h"

namespace {

using namespace std::string_literals;

hx::Resources Read(const std::wstring& script) {
    hx::ResourceError error;
    const auto resources = hx::ReadResourceScript(script, error);
    EXPECT_TRUE(resources) << error.line << ": " << testing::PrintToString(error.text);
    return resources.value_or(hx::Resources{});
}

hx::DialogTemplate ReadDialog(const std::wstring& statements, const std::wstring& controls) {
    return Read(L"5 DIALOGEX 1, 2, 30, 40 " + statements + L" { " + controls + L" }").dialogs[5];
}

TEST(GoodScript, TextsAreReadAsTheyAreMeant) {
    const struct {
        std::wstring literal;
        std::wstring text;
    } rows[] = {
        {LR"("")", L""},
        {LR"("a ""b"" c")", L"a \"b\" c"},
        {LR"("\"\\n\n\r\t\\")", L"\"\\n\n\r\t\\"},
        {LR"("\x41\x4ag\1018\0")", L"AJgA8\0"s},
        {LR"(L"\x00e4\x4E2Dg\x9h")", L"\u00E4\u4E2Dg\th"},
        {LR"(L"\xD83D\xDE00\xD83D" L"\xDE01")", L"\U0001F600\U0001F601"},
        {L"\"\u65E5\u672C \U0001F600\tx\"", L"\u65E5\u672C \U0001F600\tx"},
        {L"\"one \" // first\n L\"two\" /* \n second */ \" three\"", L"one two three"},
        {L"\"// no /* comment {\"", L"// no /* comment {"},
        {L"\"" + std::wstring(65535, L'x') + L"\"", std::wstring(65535, L'x')},
    };
    for (const auto& row : rows) {
        const hx::Resources resources = Read(L"STRINGTABLE { 9 " + row.literal + L"\n10 \"next\" }");
        const std::map<uint32_t, std::wstring> strings = {{9, row.text}, {10, L"next"}};
        EXPECT_EQ(resources.strings, strings) << &row - rows;
    }
}

TEST(GoodScript, NumbersHaveNamesSumsAndForms) {
    const hx::Resources resources = Read(
        L"\xFEFF#include <winres.h> and \"anything\r\n"
        L"#pragma code_page(65001)\n"
        L"  # pragma once /* */\n"
        L"#define FIRST 0x10L // sixteen\r\n"
        L"#define Other (FIRST) /* over\n two lines */\n"
        L"#define FIRST 16\n"
        L"#define IDOK 1\n"
        L"#define _NEGATIVE (-0X5)\n"
        L"LANGUAGE LANG_CZECH, SUBLANG_DEFAULT\n"
        L"stringtable DISCARDABLE LANGUAGE 9, 1 CHARACTERISTICS 7 VERSION 2\n"
        L"begin 0 \"a\" FIRST, \"b\" Other + 1 \"c\"\n"
        L"#define LATE 30\n"
        L"LATE+1|2-1 \"d\" (1|2) - (1 + _NEGATIVE) \"e\" 65535 \"f\" End STRINGTABLE { IDOK \"g\" }");
    const std::map<uint32_t, std::wstring> strings = {{0, L"a"},  {1, L"g"},  {7, L"e"},    {16, L"b"},
                                                      {17, L"c"}, {30, L"d"}, {65535, L"f"}};
    EXPECT_EQ(resources.strings, strings);
}

TEST(GoodScript, DialogsHaveTheirFrame) {
    const struct {
        std::wstring statements;
        uint32_t style;
        uint32_t extended_style;
    } rows[] = {
        {L"", 0x80880000, 0},
        {L"CAPTION \"c\" FONT 9, \"Segoe UI\"", 0x80C80040, 0},
        {L"STYLE WS_CHILD | DS_SHELLFONT | DS_CONTROL", 0x40000408, 0},
        {L"EXSTYLE WS_EX_CONTROLPARENT STYLE DS_FIXEDSYS | WS_CHILD | NOT WS_VISIBLE", 0x40000008, 0x10000},
        {L"LANGUAGE 7, 1 FONT 8, \"MS Shell Dlg\", FW_NORMAL, FALSE, 0x1 STYLE WS_CHILD CHARACTERISTICS 1",
         0x40000040, 0},
    };
    for (const auto& row : rows) {
        const hx::DialogTemplate dialog = ReadDialog(row.statements, L"");
        EXPECT_EQ(dialog.style, row.style) << &row - rows;
        EXPECT_EQ(dialog.extended_style, row.extended_style) << &row - rows;
        EXPECT_EQ(dialog.rectangle, (hx::DialogRectangle{1, 2, 30, 40})) << &row - rows;
    }
    const hx::DialogTemplate dialog = ReadDialog(rows[1].statements, L"");
    EXPECT_EQ(dialog.caption, L"c");
    EXPECT_EQ(dialog.font_points, 9u);
    EXPECT_EQ(dialog.font_face, L"Segoe UI");
}

TEST(GoodScript, ControlsHaveTheirClassAndStyle) {
    const struct {
        std::wstring statement;
        hx::DialogControl control;
    } rows[] = {
        {L"LTEXT \"t\",", {L"Static", L"t", 7, {}, 0x50020000, 0}},
        {L"CTEXT \"t\",", {L"Static", L"t", 7, {}, 0x50020001, 0}},
        {L"RTEXT \"t\",", {L"Static", L"t", 7, {}, 0x50020002, 0}},
        {L"GROUPBOX \"t\",", {L"Button", L"t", 7, {}, 0x50000007, 0}},
        {L"PUSHBUTTON \"t\",", {L"Button", L"t", 7, {}, 0x50010000, 0}},
        {L"DEFPUSHBUTTON \"t\",", {L"Button", L"t", 7, {}, 0x50010001, 0}},
        {L"CHECKBOX \"t\",", {L"Button", L"t", 7, {}, 0x50010002, 0}},
        {L"AUTOCHECKBOX \"t\",", {L"Button", L"t", 7, {}, 0x50010003, 0}},
        {L"AUTORADIOBUTTON \"t\",", {L"Button", L"t", 7, {}, 0x50000009, 0}},
        {L"EDITTEXT ", {L"Edit", L"", 7, {}, 0x50810000, 0}},
        {L"COMBOBOX ", {L"ComboBox", L"", 7, {}, 0x50000000, 0}},
        {L"listbox ", {L"ListBox", L"", 7, {}, 0x50800001, 0}},
    };
    for (const auto& row : rows) {
        // Without a style, with one that adds and takes away, with an extended one, too.
        hx::DialogControl expected = row.control;
        expected.rectangle = {-1, 2, 3, 4};
        EXPECT_EQ(ReadDialog(L"", row.statement + L"7,-1,2,3,4").controls.at(0), expected) << &row - rows;
        expected.style = (expected.style & ~0x10010000u) | 0x08200080u;
        const std::wstring more = row.statement +
                                  L"7,-1,2,3,4, WS_DISABLED | NOT WS_VISIBLE | (WS_VSCROLL | "
                                  L"NOT WS_TABSTOP) | 0x40+0x40";
        EXPECT_EQ(ReadDialog(L"", more).controls.at(0), expected) << &row - rows;
        expected.extended_style = 0x20000;
        EXPECT_EQ(ReadDialog(L"", more + L", WS_EX_STATICEDGE").controls.at(0), expected) << &row - rows;
    }
}

TEST(GoodScript, ControlsOfAnyClass) {
    const hx::DialogTemplate dialog = ReadDialog(
        L"",
        L"CONTROL \"\", 204, \"MSCTLS_TRACKBAR32\", TBS_VERT | TBS_NOTICKS | WS_TABSTOP, 1, 2, 3, 4\n"
        L"CONTROL \"p\", 106, \"{0A1B}\", NOT WS_VISIBLE, 5, 6, 7, 8, 0x1\n"
        L"CONTROL \"x\", IDC_STATIC, BUTTON, BS_AUTOCHECKBOX, 0, 0, 0, 0\n"
        L"LTEXT \"a\", -1, 0, 0, 0, 0 LTEXT \"b\", 65535, 0, 0, 0, 0");
    const std::vector<hx::DialogControl> controls = {
        {L"msctls_trackbar32", L"", 204, {1, 2, 3, 4}, 0x50010012, 0},
        {L"{0A1B}", L"p", 106, {5, 6, 7, 8}, 0x40000000, 1},
        {L"Button", L"x", hx::kNoControlId, {}, 0x50000003, 0},
        {L"Static", L"a", hx::kNoControlId, {}, 0x50020000, 0},
        {L"Static", L"b", hx::kNoControlId, {}, 0x50020000, 0},
    };
    EXPECT_EQ(dialog.controls, controls);
}

TEST(GoodScript, MenusHaveItemsAndSubmenus) {
    const hx::Resources resources = Read(
        L"#define IDR_MENU 262\n"
        L"IDR_MENU MENU DISCARDABLE BEGIN\n"
        L"  MENUITEM \"&Save as\\tF2\", 32773\n"
        L"  MENUITEM SEPARATOR\n"
        L"  MENUITEM \"Discard\", 32774, GRAYED, CHECKED INACTIVE\n"
        L"  POPUP \"More\", GRAYED { POPUP \"Most\" { MENUITEM \"x\", 1 HELP MENUBREAK } }\n"
        L"END");
    const hx::MenuItem most{L"Most", 0, hx::kMenuSubmenu, {{L"x", 1, 0x4040, {}}}};
    const hx::MenuTemplate menu = {{{L"&Save as\tF2", 32773, 0, {}},
                                    {L"", 0, hx::kMenuSeparator, {}},
                                    {L"Discard", 32774, 0x1 | 0x2 | 0x8, {}},
                                    {L"More", 0, hx::kMenuSubmenu | hx::kMenuGrayed, {most}}}};
    EXPECT_EQ(resources.menus.at(262), menu);
}

TEST(GoodScript, RegistrationScriptsAreTheTextsOfTheirFilesAndBitmapsTheBytes) {
    hx::ResourceError error;
    const auto resources = hx::ReadResourceScript(
        L"#define IDR_B 8\n7 REGISTRY DISCARDABLE \"a.rgs\" IDR_B registry \"B c.rgs\" 7 BITMAP \"a.bmp\"",
        error, [](const std::wstring& file_name) { return "\xEF\xBB\xBFtext of " + hx::ToUtf8(file_name); });
    ASSERT_TRUE(resources);
    const std::map<uint32_t, std::wstring> texts = {{7, L"text of a.rgs"}, {8, L"text of B c.rgs"}};
    EXPECT_EQ(resources->registrations, texts);
    const std::map<uint32_t, std::string> bitmaps = {{7, "\xEF\xBB\xBFtext of a.bmp"}};
    EXPECT_EQ(resources->bitmaps, bitmaps);
}

TEST(GoodScript, TheFirstKnownLanguageOfAVersionIsTaken) {
    const auto language = [](const std::wstring& key, const std::wstring& version) {
        return L"BLOCK \"" + key +
               L"\" { VALUE \"FileDescription\", \"Thing\\0\" VALUE \"ProductVersion\", \"" + version +
               L"\" }";
    };
    const auto version_of = [](const std::wstring& languages) {
        return hx::VersionOf(
            Read(L"VS_VERSION_INFO VERSIONINFO FILEVERSION 1,2,3,4 PRODUCTVERSION 1,2,3,4\n"
                 L"FILEFLAGSMASK VS_FFI_FILEFLAGSMASK FILEFLAGS 0 FILEOS VOS_NT_WINDOWS32\n"
                 L"FILETYPE VFT_DLL FILESUBTYPE VFT2_UNKNOWN\n"
                 L"BEGIN BLOCK \"StringFileInfo\" { " +
                 languages + L" } BLOCK \"VarFileInfo\" { VALUE \"Translation\", 0x409, 1200 } END"));
    };
    const hx::ModuleVersion both = version_of(language(L"04090000", L"1") + language(L"040904e4", L"2"));
    EXPECT_EQ(both.product_version, L"2");
    EXPECT_EQ(both.file_description, L"Thing");
    EXPECT_EQ(version_of(language(L"00000000", L"3")).product_version, L"3");
    EXPECT_EQ(version_of(language(L"040704B0", L"4")).product_version, L"")
        << "not a language that is asked for";
    EXPECT_EQ(version_of(L"BLOCK \"000004B0\" { }" + language(L"00000000", L"5")).product_version, L"")
        << "the first that is there decides";
}

}  // namespace
