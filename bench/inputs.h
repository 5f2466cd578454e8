// The documents that are parsed, read and written. Made here, the same in every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace hx::bench {

// A document in the tagged form, of ASCII characters, as narrow and as wide text.
struct Input {
    std::string name;
    std::string text;
    std::wstring wide;
    size_t elements;
    uint64_t checksum;  // of the values, before they became text
};

enum class InputKind {
    kSettings,    // S: one roomy and one dense record
    kRoomy,       // M: 1 MB of profiles
    kDense,       // Md: 1 MB of steps
    kLargeRoomy,  // L: 100 MB of profiles
    kLargeDense,  // Ld: 100 MB of steps
};

// Makes each input when it is first asked for.
class Inputs {
public:
    const Input& Get(InputKind kind);

private:
    std::map<InputKind, Input> m_inputs;
};

}  // namespace hx::bench
