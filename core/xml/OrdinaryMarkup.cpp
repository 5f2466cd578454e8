// The indexer's fast lane: start tags, attributes in quotes, end tags that match, one after the other, as any
// writer makes them. Whatever else comes is left to the general way, which would index all of this just the
// same.
#include "core/xml/MarkupIndexer.h"
#include "core/xml/SameChars.h"
#include "core/xml/XmlChars.h"

namespace hx {
namespace {

// True if the end tag, whose name begins at `end_name` and ends right before `gt`, closes the start tag whose
// name begins at `start_name`. Equal characters up to `gt` and a delimiter behind them make equal names.
inline bool Closes(const wchar_t* chars, uint32_t start_name, uint32_t end_name, uint32_t gt) {
    return IsDelimiter(chars[start_name + (gt - end_name)]) &&
           SameChars(chars + start_name, chars + end_name, gt - end_name);
}

}  // namespace

void MarkupIndexer::IndexOrdinaryMarkup() {
    // Entries of the tape that are looked at together: those of an end tag behind the ones of a start tag.
    constexpr uint32_t kLookAhead = 4;
    const uint32_t* tape = m_tape.Taken();
    if (m_open_names || m_tape.Scanned() - tape <= kLookAhead) return;
    const uint32_t* const tape_end = m_tape.Scanned() - kLookAhead;
    const wchar_t* const chars = m_chars;

    const uint32_t first = m_index.Count();
    uint32_t room = m_index.Room();
    if (room == 0) return;
    uint32_t* start = &m_index.Start(first);
    ElementRecord* record = &m_index[first];
    uint32_t element = first;
    uint32_t open = m_open;
    uint32_t last = m_last;
    uint32_t level = m_level;
    // Where the index of the next element goes: the last sibling's `next`, or the parent's `first_child`.
    uint32_t* link = last != 0 ? &m_index[last].next : &m_index[open].first_child;

    while (tape < tape_end) {
        const uint32_t lt = tape[0];
        if (chars[lt] != L'<') break;
        if (chars[lt + 1] == L'/') {
            const uint32_t gt = tape[1];
            if (open == m_base || chars[gt] != L'>' || !Closes(chars, m_index.Start(open) + 1, lt + 2, gt))
                break;
            ElementRecord& closed = m_index[open];
            closed.length = gt + 1 - m_index.Start(open);
            closed.end_tag_length = gt + 1 - lt;
            if (last != 0) m_index[closed.first_child].previous = last;
            if ((closed.flags & kIllFormed) != 0) m_index[closed.parent].flags |= kIllFormed;
            last = open;
            link = &closed.next;
            open = closed.parent;
            level = ElementRecord::Below(m_index[open].level);
            tape += 2;
            continue;
        }
        if (!IsTagStart(chars[lt + 1]) || room == 0) break;
        const uint32_t* end = tape + 1;
        while (end < tape_end && IsQuote(chars[*end]) && chars[*end - 1] == L'=' &&
               chars[end[1]] == chars[*end]) {
            end += 2;
        }
        if (end >= tape_end || chars[*end] != L'>') break;

        const uint32_t gt = *end;
        *start++ = lt;
        *link = element;
        record->start_tag_length = gt + 1 - lt;
        record->level = level & ElementRecord::kMaxLevel;
        record->parent = open;
        record->first_child = 0;
        record->next = 0;
        record->previous = last;
        const uint32_t next_lt = end[1];
        const uint32_t next_gt = end[2];
        if (chars[gt - 1] == L'/') {
            record->length = gt + 1 - lt;
            record->end_tag_length = 0;
            record->flags = kEmpty;
            last = element;
            link = &record->next;
            tape = end + 1;
        } else if (chars[next_lt] == L'<' && chars[next_lt + 1] == L'/' && chars[next_gt] == L'>' &&
                   Closes(chars, lt + 1, next_lt + 2, next_gt)) {
            record->length = next_gt + 1 - lt;
            record->end_tag_length = next_gt + 1 - next_lt;
            record->flags = kPlain;
            last = element;
            link = &record->next;
            tape = end + 3;
        } else {
            record->flags = 0;
            open = element;
            last = 0;
            level = ElementRecord::Below(level);
            link = &record->first_child;
            tape = end + 1;
        }
        ++element;
        ++record;
        --room;
    }
    m_tape.TakeUpTo(tape);
    m_index.Take(element - first);
    m_open = open;
    m_last = last;
    m_level = level;
}

}  // namespace hx
