// Fills plain structs with values. They depend on the name of the field and on the number of the record in
// its list alone, and have so few digits that they survive as text.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "bench/plain_record.h"
#include "bench/tag.h"

namespace hx::bench {

class PlainFiller {
public:
    explicit PlainFiller(bool with_texts) : m_with_texts(with_texts) {}

    template <std::derived_from<PlainRecord> Record>
    void Value(Tag, Record& record) {
        Record::Exchange(*this, record);
    }
    template <class Record>
    void Value(Tag tag, std::vector<Record>& list) {
        for (Record& record : list) {
            Value(tag, record);
            ++m_record;
        }
    }
    template <class Char>
    void Value(Tag tag, std::basic_string<Char>& text) {
        if (!m_with_texts) return;
        const std::string filled = "Dark surface, " + std::to_string(Upto(tag, 99'999));
        text.assign(filled.begin(), filled.end());
    }
    template <class Number>
    requires std::is_arithmetic_v<Number>
    void Value(Tag tag, Number& number) {
        // They tell the form of what follows.
        if (tag.narrow == "Version" || tag.narrow == "Size") return;
        if constexpr (std::is_same_v<Number, bool>) {
            number = Upto(tag, 1) != 0;
        } else if constexpr (std::is_floating_point_v<Number>) {
            number = Upto(tag, 99'999) / 1000.0;
        } else {
            number = static_cast<Number>(Upto(tag, sizeof(Number) == 1 ? 250 : 30'000));
        }
    }

private:
    uint32_t Upto(Tag tag, uint32_t most) const {
        uint64_t mixed = m_record;
        for (const char c : tag.narrow)
            mixed = (mixed + static_cast<unsigned char>(c)) * 0x9E37'79B9'7F4A'7C15;
        return static_cast<uint32_t>(mixed >> 32) % (most + 1);
    }

    const bool m_with_texts;
    uint64_t m_record = 1;
};

}  // namespace hx::bench
