// The element records of a document: where each element lies in the text and how it hangs in the tree.
//
// Owned by one document and used on its thread. Record 0 stands for the document itself (its first child is
// the root element). Records lie in segments of 65,536, addressed by a 32-bit index: high half segment, low
// half slot. The start offsets lie apart from the rest, so that an edit of the text moves them in one pass
// over plain numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace hx {

// Flags of an element record.
enum ElementFlag : uint32_t {
    kIllFormed = 1,  // the element or one of its children has an error
    kNotEnded = 2,   // no end tag of its own
    kEmpty = 4,      // written as a self-closing tag
    kRemoved = 8,    // no longer in the tree, waiting to be used again
    kPlain = 16,     // the content is text as it stands: no markup in it, and no references
    kAllFlags = 31,
};

// All lengths in characters. 32 bytes; with its start offset an element takes 36.
struct ElementRecord {
    static constexpr uint32_t kMaxLevel = (1u << 27) - 1;  // deeper elements carry this level

    static constexpr uint32_t Below(uint32_t level) { return level < kMaxLevel ? level + 1 : kMaxLevel; }
    void ClearFlag(ElementFlag flag) { flags = flags & ~flag & kAllFlags; }

    uint32_t length;
    uint32_t start_tag_length;
    uint32_t end_tag_length;
    uint32_t level : 27;
    uint32_t flags : 5;
    uint32_t parent;
    uint32_t first_child;
    uint32_t next;
    uint32_t
        previous;  // previous sibling; the first child holds the last one here, so that appending is quick
};

class ElementIndex {
public:
    static constexpr uint32_t kSegmentSize = 65'536;

    // Forgets everything and makes room for about `expected` records. Record 0 is there afterwards, all zero.
    void Reset(size_t expected);

    // Index of a record to be filled by the caller: one that was released, or a new one.
    uint32_t Add() {
        if (m_released != 0) return TakeReleased();
        if (m_count == m_capacity) Grow();
        return m_count++;
    }

    // How many records Add can give without moving or allocating anything; they have rising indexes, from
    // Count on, and lie in one segment.
    uint32_t Room() const { return m_released == 0 ? m_capacity - m_count : 0; }
    // Takes `count` of them at once.
    void Take(uint32_t count) { m_count += count; }

    // Gives the subtree of `element` back for later use. The links from outside to it are the caller's.
    void Release(uint32_t element);

    ElementRecord& operator[](uint32_t element) {
        return m_segments[element >> 16].records[element & (kSegmentSize - 1)];
    }
    const ElementRecord& operator[](uint32_t element) const {
        return m_segments[element >> 16].records[element & (kSegmentSize - 1)];
    }

    // Offset of the element's start tag in the text.
    uint32_t& Start(uint32_t element) {
        return m_segments[element >> 16].starts[element & (kSegmentSize - 1)];
    }
    uint32_t Start(uint32_t element) const {
        return m_segments[element >> 16].starts[element & (kSegmentSize - 1)];
    }

    // Adds `delta` (modulo 2^32) to every start at or behind `offset`.
    void ShiftStarts(uint32_t offset, uint32_t delta);

    // Records handed out so far, the document's and the released ones included.
    uint32_t Count() const { return m_count; }

    // Memory of the records in use, in bytes.
    size_t BytesInUse() const { return m_count * (sizeof(ElementRecord) + sizeof(uint32_t)); }

private:
    struct Segment {
        std::unique_ptr<uint32_t[]> starts;
        std::unique_ptr<ElementRecord[]> records;
    };

    // What a document has room for at least: a small one then needs no second allocation.
    static constexpr size_t kFewest = 64;

    static Segment NewSegment(uint32_t records);
    uint32_t TakeReleased();
    void Grow();

    std::vector<Segment> m_segments;
    uint32_t m_count = 0;
    uint32_t m_capacity = 0;  // records that fit without growing
    uint32_t m_released = 0;  // head of the released records, linked by `next`
};

}  // namespace hx
