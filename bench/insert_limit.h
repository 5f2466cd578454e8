// The least that inserting into one text with a table of offsets can cost: moving the text behind the place,
// and adding to the offsets behind it. Plain loops, to compare the document with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hx::bench {

// Where one insertion lands, and how many elements then lie behind it.
struct Place {
    size_t offset;
    size_t elements_behind;
};

class InsertLimit {
public:
    // Makes room for `count` insertions of `inserted` into `text` with that many elements.
    InsertLimit(std::wstring_view text, size_t elements, std::wstring_view inserted, size_t count);

    void Run(const std::vector<Place>& places);

private:
    const std::wstring_view m_inserted;
    size_t m_size;
    std::vector<wchar_t> m_text;
    std::vector<uint32_t> m_starts;
};

// Where insertions land, told from the offsets that they had when they were made, one after the other. `text`
// is the document before them.
std::vector<Place> FindPlaces(std::wstring_view text, const std::vector<size_t>& offsets, size_t inserted);

}  // namespace hx::bench
