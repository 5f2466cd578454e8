#include "platform/module/embedded_scripts.h"

#include <cstddef>
#include <cstdint>

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
}

namespace hx {

std::string_view EmbeddedScript() {
    return {hx_script, static_cast<size_t>(hx_script_sizes[0])};
}

std::string_view EmbeddedVersionScript() {
    return {hx_version_script, static_cast<size_t>(hx_script_sizes[1])};
}

}  // namespace hx
