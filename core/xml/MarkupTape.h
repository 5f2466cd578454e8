// The positions of all markup characters of a text, one after the other.
//
// The text is scanned a stretch at a time, just ahead of the reader, so that the reader finds it in the
// processor's cache and the scratch space is the same for a document of 1 GB. Used by the indexer on its own
// stack.
#pragma once

#include <cstdint>

#include "core/xml/MarkupScan.h"

namespace hx {

class MarkupTape {
public:
    // Reads text[from, end); `text` outlives the tape.
    MarkupTape(const wchar_t* text, uint32_t from, uint32_t end)
        : m_scan(FastestMarkupScan()), m_text(text), m_scanned(from), m_end(end) {}

    // The next < > & " or ' behind the one returned before; `end` once there is none, and ever after.
    uint32_t Next() {
        if (m_next == m_count) ScanAhead();
        return m_positions[m_next++];
    }

    // Leaves out everything before `offset`.
    void SkipTo(uint32_t offset) {
        while (m_next < m_count && m_positions[m_next] < offset) ++m_next;
        if (m_next == m_count && m_scanned < offset) m_scanned = offset;
    }

    // What is scanned and not yet taken, for a reader that looks ahead: [Taken, Scanned).
    const uint32_t* Taken() const { return m_positions + m_next; }
    const uint32_t* Scanned() const { return m_positions + m_count; }
    void TakeUpTo(const uint32_t* position) { m_next = static_cast<uint32_t>(position - m_positions); }

private:
    static constexpr uint32_t kStretch = 4096;

    void ScanAhead() {
        m_next = 0;
        m_count = 0;
        while (m_count == 0 && m_scanned < m_end) {
            const uint32_t to = m_end - m_scanned < kStretch ? m_end : m_scanned + kStretch;
            m_count = static_cast<uint32_t>(m_scan(m_text, m_scanned, to, m_positions));
            m_scanned = to;
        }
        if (m_count == 0) {
            m_positions[0] = m_end;
            m_count = 1;
        }
    }

    const MarkupScan m_scan;
    const wchar_t* const m_text;
    uint32_t m_scanned;
    const uint32_t m_end;
    uint32_t m_next = 0;
    uint32_t m_count = 0;
    uint32_t m_positions[kStretch + kScanSlack];
};

}  // namespace hx
