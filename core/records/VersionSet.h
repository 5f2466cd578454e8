// The versions of a record that carry a field. Any thread.
#pragma once

#include <cstdint>

namespace hx {

class VersionSet {
public:
    // From this version on, up to this one, this one alone, all but this one.
    static constexpr VersionSet All() { return VersionSet(~0u); }
    static constexpr VersionSet From(uint32_t version) { return VersionSet(~0u << version); }
    static constexpr VersionSet UpTo(uint32_t version) { return VersionSet((2u << version) - 1); }
    static constexpr VersionSet Only(uint32_t version) { return VersionSet(1u << version); }
    static constexpr VersionSet Except(uint32_t version) { return VersionSet(~(1u << version)); }
    constexpr VersionSet operator&(VersionSet other) const { return VersionSet(m_bits & other.m_bits); }

    // A negative version counts as 0, one beyond all known ones as the last that can be told apart.
    constexpr bool Contains(int64_t version) const {
        const int64_t known = version < 0 ? 0 : version > kLast ? kLast : version;
        return (m_bits >> known & 1) != 0;
    }

    static constexpr int64_t kLast = 31;

private:
    explicit constexpr VersionSet(uint32_t bits) : m_bits(bits) {}

    uint32_t m_bits;
};

}  // namespace hx
