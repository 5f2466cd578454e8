#include "bench/library_without_start.h"

#include <elf.h>

#include <cstring>
#include <stdexcept>

#include "platform/system/files.h"

namespace hx::bench {
namespace {

template <class T>
T Read(const std::string& bytes, size_t offset) {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(T))
        throw std::runtime_error("not a shared library");
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

void RemoveStart(std::string& bytes, const Elf64_Phdr& dynamic) {
    for (size_t at = dynamic.p_offset; at < dynamic.p_offset + dynamic.p_filesz; at += sizeof(Elf64_Dyn)) {
        auto entry = Read<Elf64_Dyn>(bytes, at);
        if (entry.d_tag != DT_INIT_ARRAYSZ && entry.d_tag != DT_FINI_ARRAYSZ) continue;
        entry.d_un.d_val = 0;
        std::memcpy(bytes.data() + at, &entry, sizeof entry);
    }
}

}  // namespace

void WriteLibraryWithoutStart(const std::filesystem::path& library, const std::filesystem::path& copy) {
    std::string bytes;
    if (ReadFile(library, bytes)) throw std::runtime_error("cannot read " + library.string());
    const auto header = Read<Elf64_Ehdr>(bytes, 0);
    for (size_t i = 0; i < header.e_phnum; ++i) {
        const auto part = Read<Elf64_Phdr>(bytes, header.e_phoff + i * header.e_phentsize);
        if (part.p_type == PT_DYNAMIC) RemoveStart(bytes, part);
    }
    if (WriteFileAtomically(copy, bytes)) throw std::runtime_error("cannot write " + copy.string());
}

}  // namespace hx::bench
