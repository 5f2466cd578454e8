// Bases of versioned records: they tell the record's current version, and add neither fields nor virtual
// operations. Any thread.
#pragma once

#include <cstdint>
#include <span>

#include "core/errors/MRegisteredClasses.h"

namespace hx {

class StreamableBase {};

// For a record that extends an ordinary class, which is no record itself.
template <class X>
class NotStreamable : public X, public StreamableBase {};

// T derives from it; `version` is what T writes.
template <class T, uint32_t version, class Base, int = 0>
class Streamable : public Base {
public:
    static constexpr uint32_t kStreamVersion = version;
};

// Enters the classes that a source defines in the diagnostics, with the names of the stream family that all
// of them share; one per source, at program start.
class StreamedClasses {
public:
    // The names are literals; the array stays.
    explicit StreamedClasses(std::span<const char* const> names);

private:
    MRegisteredClasses m_classes;
    MRegisteredClasses m_family;
};

}  // namespace hx
