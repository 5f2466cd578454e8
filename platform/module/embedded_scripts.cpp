#include "platform/module/embedded_scripts.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

// The file names are those of the build, which also makes anew what changes (cmake/HxResources.cmake).
asm(R"(
    .pushsection .rodata, "a"
    .globl hx_script
    .hidden hx_script
hx_script:
    .incbin ")" HX_SCRIPT R"("
hx_script_end:
    .globl hx_version_script
    .hidden hx_version_script
hx_version_script:
    .incbin ")" HX_VERSION_SCRIPT R"("
hx_version_script_end:
    .globl hx_files
    .hidden hx_files
hx_files:
    .include ")" HX_FILES R"("
    .byte 0
    .balign 8
    .globl hx_script_sizes
    .hidden hx_script_sizes
hx_script_sizes:
    .quad hx_script_end - hx_script
    .quad hx_version_script_end - hx_version_script
    .popsection
)");

extern "C" {
[[gnu::visibility("hidden")]] extern const char hx_script[];
[[gnu::visibility("hidden")]] extern const char hx_version_script[];
[[gnu::visibility("hidden")]] extern const uint64_t hx_script_sizes[2];
// Name, NUL, size and bytes of each, with nothing in between; an empty name behind the last.
[[gnu::visibility("hidden")]] extern const char hx_files[];
}

namespace hx {

std::string_view EmbeddedScript() {
    return {hx_script, static_cast<size_t>(hx_script_sizes[0])};
}

std::string_view EmbeddedVersionScript() {
    return {hx_version_script, static_cast<size_t>(hx_script_sizes[1])};
}

std::optional<std::string_view> EmbeddedFile(std::string_view file_name) {
    for (const char* at = hx_files; *at != '\0';) {
        const std::string_view name = at;
        uint64_t size = 0;
        at += name.size() + 1;
        std::memcpy(&size, at, sizeof size);
        at += sizeof size;
        if (name == file_name) return std::string_view(at, static_cast<size_t>(size));
        at += size;
    }
    return std::nullopt;
}

}  // namespace hx
