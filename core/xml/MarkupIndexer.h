// Builds the element records of a text in one pass, whatever the text holds, and says what is wrong with it.
//
// Made by the document for one run. Time is linear in the text: nothing is searched twice, and nothing
// recurses on the depth of the elements.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/xml/ElementIndex.h"
#include "core/xml/Markup.h"
#include "core/xml/MarkupTape.h"
#include "core/xml/OpenNames.h"

namespace hx {

class MarkupIndexer {
public:
    // Will index text[from, end) as children of the element `base`, which has none yet.
    MarkupIndexer(std::wstring_view text, uint32_t from, uint32_t end, ElementIndex& index, uint32_t base,
                  bool ignore_case);

    void Run();

    // The first problem found; empty if there is none.
    const std::wstring& Error() const { return m_error; }

    // False if all problems are elements named like the cells of a transform ("00" to "33").
    bool HasOtherProblem() const { return m_other_problem; }

private:
    void IndexOrdinaryMarkup();
    void StartTag(uint32_t lt, bool bad_name);
    void EndTag(uint32_t lt);
    void OtherMarkup(uint32_t lt);
    uint32_t TagEnd(uint32_t name);
    bool ClosesOpenElement(uint32_t name, uint32_t gt) const;
    void UnexpectedEndTag(uint32_t lt, uint32_t gt);
    void Close(uint32_t end_tag, uint32_t end);
    void CloseUnended(uint32_t end);
    void LinkLastChild(uint32_t parent);
    std::wstring_view NameAt(uint32_t offset) const;
    std::wstring_view OpenName() const { return NameAt(m_index.Start(m_open) + 1); }
    bool OpenNameIs(std::wstring_view name) const;
    bool FirstProblem(uint32_t element);
    void Unterminated(const wchar_t* construct, uint32_t lt);

    const std::wstring_view m_text;  // ends where the run ends
    const wchar_t* const m_chars;
    const uint32_t m_end;
    ElementIndex& m_index;
    const uint32_t m_base;
    const bool m_ignore_case;
    MarkupTape m_tape;
    uint32_t m_open;      // innermost element without its end tag
    uint32_t m_last = 0;  // last complete child of m_open
    uint32_t m_level;     // of the children of m_open
    bool m_other_problem = false;
    std::wstring m_error;
    std::optional<OpenNames> m_open_names;  // made at the first end tag that does not match
};

}  // namespace hx
