#include "platform/system/system_description.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>

#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

std::wstring KnownText(const std::string& bytes) {
    const auto text = FromUtf8(bytes);
    return text && !text->empty() ? *text : L"Unknown";
}

// As a shell reads the right side of an assignment: quotes around it, a backslash before a special character.
std::string Unquoted(std::string_view value) {
    std::string text;
    for (size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '"' || value[i] == '\'') continue;
        if (value[i] == '\\' && i + 1 < value.size()) ++i;
        text += value[i];
    }
    return text;
}

// The value of a line KEY=VALUE; empty if there is none.
std::string ValueOf(std::string_view lines, std::string_view key) {
    while (!lines.empty()) {
        const size_t length = std::min(lines.find('\n'), lines.size());
        const std::string_view line = lines.substr(0, length);
        if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
            return Unquoted(line.substr(key.size() + 1));
        }
        lines.remove_prefix(std::min(length + 1, lines.size()));
    }
    return {};
}

std::string ReleaseFile(const std::filesystem::path& root) {
    std::string bytes;
    if (ReadFile(root / "etc/os-release", bytes)) ReadFile(root / "usr/lib/os-release", bytes);
    return bytes;
}

}  // namespace

SystemDescription DescribeSystem(const std::filesystem::path& root) {
    const std::string release = ReleaseFile(root);
    utsname kernel{};
    if (uname(&kernel) != 0) kernel = {};
    const long processors = sysconf(_SC_NPROCESSORS_ONLN);
    return {KnownText(ValueOf(release, "NAME")), KnownText(ValueOf(release, "VERSION")),
            KnownText(kernel.release), KnownText(kernel.machine),
            KnownText(processors > 0 ? std::to_string(processors) : std::string())};
}

}  // namespace hx
