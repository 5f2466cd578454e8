#include "bench/insert_limit.h"

#include <algorithm>
#include <cwchar>

namespace hx::bench {

InsertLimit::InsertLimit(std::wstring_view text, size_t elements, std::wstring_view inserted, size_t count)
    : m_inserted(inserted),
      m_size(text.size()),
      m_text(text.begin(), text.end()),
      m_starts(elements + count) {
    m_text.resize(text.size() + count * inserted.size());
}

void InsertLimit::Run(const std::vector<Place>& places) {
    const auto length = static_cast<uint32_t>(m_inserted.size());
    for (const Place& place : places) {
        wchar_t* const at = m_text.data() + place.offset;
        std::wmemmove(at + length, at, m_size - place.offset);
        std::wmemcpy(at, m_inserted.data(), length);
        m_size += length;
        uint32_t* const end = m_starts.data() + m_starts.size();
        for (uint32_t* start = end - place.elements_behind; start != end; ++start) *start += length;
    }
}

std::vector<Place> FindPlaces(std::wstring_view text, const std::vector<size_t>& offsets, size_t inserted) {
    std::vector<size_t> starts;
    for (size_t at = text.find(L'<'); at != std::wstring_view::npos; at = text.find(L'<', at + 1)) {
        if (text[at + 1] != L'/' && text[at + 1] != L'?') starts.push_back(at);
    }
    std::vector<Place> places;
    for (const size_t offset : offsets) {
        const auto behind = std::ranges::lower_bound(starts, offset);
        places.push_back({offset, static_cast<size_t>(starts.end() - behind)});
        for (auto start = behind; start != starts.end(); ++start) *start += inserted;
        starts.insert(behind, offset);
    }
    return places;
}

}  // namespace hx::bench
