// What is fed with arbitrary input: one row per target, for the fuzzer's main and for the replay in the
// tests. A target aborts when something that must hold does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace fuzz {

// Bytes as the input of a target. Texts are taken from it as wide characters: mostly one a byte, so that the
// fuzzer sees the structure, and behind a byte 0xFF any character at all.
class Input {
public:
    explicit Input(std::span<const uint8_t> bytes) : m_bytes(bytes) {}

    // 0 when the input is used up.
    uint8_t Byte();
    // At most `limit` characters, up to a byte 0xFE.
    std::wstring Text(size_t limit);
    bool Empty() const { return m_bytes.empty(); }

private:
    std::span<const uint8_t> m_bytes;
};

struct Target {
    std::string_view name;
    void (*run)(Input input);
};

std::span<const Target> Targets();

// Parses, navigates, edits and writes a document, and parses what was written.
void XmlDocument(Input input);
// Reads with values and groups of all kinds in an order that the input gives.
void TaggedReader(Input input);
void TaggedOptionalReader(Input input);
// Reads a resource script, writes what it means as a script, and reads that.
void ResourceScript(Input input);
// Registers and unregisters, each twice, what a registration script and a replacement say.
void RegistrationScript(Input input);
// Formats what another component says of its failure, and sends it on.
void ChainDocument(Input input);
// Writes and reads values of all types in groups of any name, in a registry in memory.
void RegistryFilers(Input input);
// Reads a record of a class that the input names, writes it, and reads that.
void Records(Input input);
// The same for the properties of a driver and its device.
void Properties(Input input);
// The same for a file of presets.
void PresetFile(Input input);

// Aborts with the text if `holds` is false.
void Require(bool holds, const char* what);

}  // namespace fuzz
