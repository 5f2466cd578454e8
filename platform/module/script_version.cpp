#include <algorithm>
#include <utility>

#include "platform/module/script_resources.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

// The fixed part repeats in numbers what the texts say.
void SkipFixedPart(ScriptParser& parser) {
    constexpr std::wstring_view kVersions[] = {L"FILEVERSION", L"PRODUCTVERSION"};
    constexpr std::wstring_view kNumbers[] = {L"FILEFLAGSMASK", L"FILEFLAGS", L"FILEOS", L"FILETYPE",
                                              L"FILESUBTYPE"};
    const auto accept = [&](std::wstring_view word) { return parser.AcceptWord(word); };
    while (true) {
        parser.SkipAttributes();
        if (std::ranges::any_of(kVersions, accept)) {
            do {
                parser.ExpectNumber(L"a part of the version", 0, UINT16_MAX);
            } while (parser.AcceptMark(L','));
        } else if (std::ranges::any_of(kNumbers, accept)) {
            parser.ExpectStyle(L"a number");
        } else {
            return;
        }
    }
}

// The values of one language; the system's texts end at their first NUL.
void ReadStrings(ScriptParser& parser, std::map<std::wstring, std::wstring>& values) {
    for (const uint32_t begin = parser.BeginBlock(L"BEGIN"); !parser.EndBlock(begin);) {
        const uint32_t line = parser.Line();
        if (!parser.AcceptWord(L"VALUE")) parser.FailExpected(L"VALUE or END");
        const std::wstring name = parser.ExpectText(L"the name of a value");
        parser.ExpectMark(L',', L"\",\"");
        std::wstring value = parser.ExpectText(L"the text of a value");
        value.resize(std::min(value.find(L'\0'), value.size()));
        if (!values.try_emplace(name, std::move(value)).second) {
            throw ScriptError{line, L"the value \"" + name + L"\" is there already"};
        }
    }
}

void ReadLanguages(ScriptParser& parser, VersionStrings& version) {
    for (const uint32_t begin = parser.BeginBlock(L"BEGIN"); !parser.EndBlock(begin);) {
        if (!parser.AcceptWord(L"BLOCK")) parser.FailExpected(L"BLOCK of a language or END");
        std::wstring language = parser.ExpectText(L"a language and code page like \"040904B0\"");
        ReadStrings(parser, version[FoldCase(language)]);
    }
}

// The languages that are there, once more.
void SkipTranslations(ScriptParser& parser) {
    for (const uint32_t begin = parser.BeginBlock(L"BEGIN"); !parser.EndBlock(begin);) {
        if (!parser.AcceptWord(L"VALUE")) parser.FailExpected(L"VALUE or END");
        parser.ExpectText(L"the name of a value");
        while (parser.AcceptMark(L',')) parser.ExpectNumber(L"a language or code page", 0, UINT16_MAX);
    }
}

}  // namespace

VersionStrings ReadVersion(ScriptParser& parser) {
    VersionStrings version;
    SkipFixedPart(parser);
    for (const uint32_t begin = parser.BeginBlock(L"BEGIN of the version"); !parser.EndBlock(begin);) {
        const uint32_t line = parser.Line();
        if (!parser.AcceptWord(L"BLOCK")) parser.FailExpected(L"BLOCK or END");
        const std::wstring name = parser.ExpectText(L"\"StringFileInfo\" or \"VarFileInfo\"");
        if (EqualsWithoutCase(name, L"StringFileInfo")) {
            ReadLanguages(parser, version);
        } else if (EqualsWithoutCase(name, L"VarFileInfo")) {
            SkipTranslations(parser);
        } else {
            throw ScriptError{line, L"expected BLOCK \"StringFileInfo\" or \"VarFileInfo\""};
        }
    }
    return version;
}

ModuleVersion VersionOf(const Resources& resources) {
    constexpr std::wstring_view kLanguages[] = {L"040904B0", L"000004B0", L"040904E4",
                                                L"000004E4", L"04090000", L"00000000"};
    for (const std::wstring_view language : kLanguages) {
        const auto found = resources.version.find(FoldCase(language));
        if (found == resources.version.end()) continue;
        const auto value = [&](const wchar_t* name) {
            const auto at = found->second.find(name);
            return at == found->second.end() ? std::wstring() : at->second;
        };
        return {value(L"FileDescription"), value(L"ProductVersion")};
    }
    return {};
}

}  // namespace hx
