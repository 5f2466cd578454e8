// What machine and system a program runs on, in words, for people who read its logs. Any thread.
#pragma once

#include <filesystem>
#include <string>

#include "platform/api.h"

namespace hx {

// "Unknown" stands wherever the system does not tell.
struct SystemDescription {
    std::wstring product;       // "Debian GNU/Linux"
    std::wstring version;       // "12 (bookworm)"
    std::wstring service_pack;  // of the kernel: its release, "6.1.0-18-amd64"
    std::wstring architecture;  // "x86_64"
    std::wstring processors;    // how many are in use
};

// `root` is the folder that the system's own files are below. Throws std::bad_alloc only.
HX_PLATFORM_API SystemDescription DescribeSystem(const std::filesystem::path& root = "/");

}  // namespace hx
