#include "core/xml/ElementIndex.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace hx {

void ElementIndex::Reset(size_t expected) {
    m_count = 0;
    m_released = 0;
    // A small document gets a small first segment, or the one that is there; beyond one segment the index
    // grows by whole ones as it is used.
    const auto first = static_cast<uint32_t>(std::clamp<size_t>(expected, kFewest, kSegmentSize));
    if (m_capacity < first || m_capacity > kSegmentSize) {
        m_segments.clear();
        m_segments.push_back(NewSegment(first));
        m_capacity = first;
    }
    const uint32_t document = Add();
    (*this)[document] = ElementRecord{};
    Start(document) = 0;
}

ElementIndex::Segment ElementIndex::NewSegment(uint32_t records) {
    return {std::make_unique_for_overwrite<uint32_t[]>(records),
            std::make_unique_for_overwrite<ElementRecord[]>(records)};
}

void ElementIndex::Grow() {
    if (m_capacity % kSegmentSize != 0) {
        // Only the first segment can be smaller than the rest; it grows by doubling, up to full size.
        Segment& first = m_segments.front();
        m_capacity = std::min(m_capacity * 2, kSegmentSize);
        Segment larger = NewSegment(m_capacity);
        std::copy_n(first.starts.get(), m_count, larger.starts.get());
        std::copy_n(first.records.get(), m_count, larger.records.get());
        first = std::move(larger);
        return;
    }
    if (m_segments.size() == kSegmentSize - 1) throw std::length_error("element index");
    m_segments.push_back(NewSegment(kSegmentSize));
    m_capacity += kSegmentSize;
}

uint32_t ElementIndex::TakeReleased() {
    const uint32_t element = m_released;
    m_released = (*this)[element].next;
    return element;
}

void ElementIndex::Release(uint32_t element) {
    // Without a stack, whatever the depth: the children of a visited element are put in front of what is
    // still to be visited.
    (*this)[element].next = 0;
    uint32_t to_visit = element;
    while (to_visit != 0) {
        ElementRecord& record = (*this)[to_visit];
        const uint32_t visited = to_visit;
        to_visit = record.next;
        if (record.first_child != 0) {
            ElementRecord& last_child = (*this)[(*this)[record.first_child].previous];
            last_child.next = to_visit;
            to_visit = record.first_child;
        }
        record.flags = kRemoved;
        record.next = m_released;
        m_released = visited;
    }
}

void ElementIndex::ShiftStarts(uint32_t offset, uint32_t delta) {
    uint32_t left = m_count;
    for (Segment& segment : m_segments) {
        const uint32_t here = std::min(left, kSegmentSize);
        uint32_t* const starts = segment.starts.get();
        for (uint32_t i = 0; i < here; ++i) starts[i] += starts[i] >= offset ? delta : 0;
        left -= here;
    }
}

}  // namespace hx
