#include "platform/module/resources.h"

#include <utility>

#include "platform/module/script_parser.h"
#include "platform/module/script_resources.h"
#include "platform/system/files.h"

namespace hx {
namespace {

// Reads a script statement by statement; each id of one kind stands once.
class ScriptReader {
public:
    ScriptReader(std::wstring_view script, const ResourceFiles& files) : m_parser(script), m_files(files) {}

    Resources Read() {
        while (true) {
            m_parser.SkipAttributes();
            if (m_parser.AtEnd()) return std::move(m_resources);
            if (m_parser.AcceptWord(L"STRINGTABLE")) {
                ReadStrings();
            } else {
                ReadResource();
            }
        }
    }

private:
    // Where an id of one kind was met first.
    struct Kind {
        std::wstring_view name;
        std::map<uint32_t, uint32_t> lines;
    };

    static void Enter(Kind& kind, uint32_t id, uint32_t line) {
        const auto [at, is_new] = kind.lines.try_emplace(id, line);
        if (is_new) return;
        throw ScriptError{line, L"the " + std::wstring(kind.name) + L" " + std::to_wstring(id) +
                                    L" is there already, in line " + std::to_wstring(at->second)};
    }

    void ReadStrings() {
        m_parser.SkipAttributes();
        for (const uint32_t begin = m_parser.BeginBlock(L"BEGIN of the strings");
             !m_parser.EndBlock(begin);) {
            const uint32_t line = m_parser.Line();
            const auto id =
                static_cast<uint32_t>(m_parser.ExpectNumber(L"the id of a string", 0, UINT16_MAX));
            m_parser.AcceptMark(L',');
            Enter(m_strings, id, line);
            m_resources.strings.emplace(id, m_parser.ExpectText(L"the text of a string"));
        }
    }

    void ReadResource() {
        const uint32_t line = m_parser.Line();
        const auto id = static_cast<uint32_t>(
            m_parser.ExpectNumber(L"STRINGTABLE or the id of a resource", 1, UINT16_MAX));
        if (m_parser.AcceptWord(L"DIALOGEX")) {
            Enter(m_dialogs, id, line);
            m_resources.dialogs.emplace(id, ReadDialog(m_parser));
        } else if (m_parser.AcceptWord(L"MENU")) {
            Enter(m_menus, id, line);
            m_resources.menus.emplace(id, ReadMenu(m_parser));
        } else if (m_parser.AcceptWord(L"VERSIONINFO")) {
            if (id != 1) throw ScriptError{line, L"version information has the id 1 (VS_VERSION_INFO)"};
            Enter(m_versions, id, line);
            m_resources.version = ReadVersion(m_parser);
        } else if (m_parser.AcceptWord(L"REGISTRY")) {
            Enter(m_registrations, id, line);
            m_resources.registrations.emplace(id, ReadRegistration(line));
        } else if (m_parser.AcceptWord(L"BITMAP")) {
            Enter(m_bitmaps, id, line);
            m_resources.bitmaps.emplace(id, ReadBytes(line, L"bitmap", L".bmp"));
        } else {
            m_parser.FailExpected(L"DIALOGEX, MENU, VERSIONINFO, REGISTRY or BITMAP");
        }
    }

    // Of a file beside the module's script, which the build takes in.
    std::string ReadBytes(uint32_t line, const std::wstring& what, const std::wstring& extension) {
        if (!m_files) throw ScriptError{line, L"only a module itself holds " + what + L"s"};
        m_parser.SkipAttributes();
        const std::wstring name = m_parser.ExpectText(L"the file of a " + what);
        if (!name.ends_with(extension) || name.find_first_of(L"/\\") != std::wstring::npos) {
            throw ScriptError{line, L"a " + what + L" is a file *" + extension +
                                        L" that lies beside this one, not " + Quoted(name)};
        }
        std::optional<std::string> bytes = m_files(name);
        if (!bytes) throw ScriptError{line, L"the " + what + L" " + Quoted(name) + L" cannot be read"};
        return std::move(*bytes);
    }

    std::wstring ReadRegistration(uint32_t line) {
        std::optional<std::wstring> text = DecodeTextFile(ReadBytes(line, L"registration script", L".rgs"));
        if (!text) throw ScriptError{line, L"the registration script is no text"};
        return std::move(*text);
    }

    ScriptParser m_parser;
    const ResourceFiles& m_files;
    Resources m_resources;
    Kind m_strings{L"string", {}};
    Kind m_dialogs{L"dialog", {}};
    Kind m_menus{L"menu", {}};
    Kind m_versions{L"version information", {}};
    Kind m_registrations{L"registration script", {}};
    Kind m_bitmaps{L"bitmap", {}};
};

}  // namespace

std::optional<Resources> ReadResourceScript(std::wstring_view script, ResourceError& error,
                                            const ResourceFiles& files) {
    try {
        return ScriptReader(script, files).Read();
    } catch (const ScriptError& refused) {
        error = {refused.line, refused.text};
        return std::nullopt;
    }
}

}  // namespace hx
