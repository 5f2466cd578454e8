// A checksum of values, by which contenders show that they read the same.
#pragma once

#include <bit>
#include <cstdint>
#include <string>

#include "bench/tag.h"

namespace hx::bench {

class Checksum {
public:
    void Begin(Tag) {}
    void End() {}

    void Value(Tag, double value) { Add(std::bit_cast<uint64_t>(value)); }
    void Value(Tag, uint32_t value) { Add(value); }
    void Value(Tag, int32_t value) { Add(static_cast<uint32_t>(value)); }
    void Value(Tag, bool value) { Add(value); }

    // Of a text its length and three of its characters: to look at all of them would cost more than to read
    // them, and this is timed with the reading.
    template <class Char>
    void Value(Tag, const std::basic_string<Char>& value) {
        Add(value.size());
        if (value.empty()) return;
        for (const Char c : {value.front(), value[value.size() / 2], value.back()})
            Add(static_cast<uint32_t>(c));
    }

    uint64_t Sum() const { return m_sum; }

private:
    void Add(uint64_t value) { m_sum = m_sum * 0x9E3779B97F4A7C15 + value; }

    uint64_t m_sum = 0;
};

}  // namespace hx::bench
