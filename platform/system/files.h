// Whole files: read, replaced so that no reader ever sees half of one, and decoded as text.
// Usable on any thread; two writers of one file end with the content of one of them.
// Failures come back as values; only std::bad_alloc is thrown.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/api.h"

namespace hx {

// What the operating system refused, and for which path. True if something failed.
struct FileError {
    std::error_code code;
    std::filesystem::path path;

    explicit operator bool() const { return static_cast<bool>(code); }
};

// `bytes` becomes the file's content; empty on failure. A folder is an error.
HX_PLATFORM_API FileError ReadFile(const std::filesystem::path& path, std::string& bytes);

// Afterwards `path` holds `bytes`, on disk, or on failure what it held before. Its folder must exist. An
// existing file keeps its permissions; a symbolic link stays and its target is replaced.
HX_PLATFORM_API FileError WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// Afterwards `path` is a new file that holds `bytes` and that nobody but this user may read; on failure it is
// what it was before. Only an ordinary file is replaced: for a symbolic link, a folder or a device the call
// fails.
HX_PLATFORM_API FileError WritePrivateFile(const std::filesystem::path& path, std::string_view bytes);

// A file that was written under another name of the same folder gets its own, for good: its content is on
// disk, and what was there under that name is replaced. If it cannot be moved, both stay.
HX_PLATFORM_API FileError PublishFile(const std::filesystem::path& written,
                                      const std::filesystem::path& path);

// A text file's content: UTF-8 with or without byte order mark, UTF-16 of either order with one. The mark is
// dropped. Nothing if it is malformed; `*bad_offset` (if given) then says at which byte of the file.
HX_PLATFORM_API std::optional<std::wstring> DecodeTextFile(std::string_view bytes,
                                                           size_t* bad_offset = nullptr);

// The folder of the shared library that this function is in, absolute and free of symbolic links.
HX_PLATFORM_API std::filesystem::path ThisLibraryFolder();

// Where the component libraries of this installation lie, and the renderer with a screen: the folder
// `hxscannerctrls` beside this library, or where there is none, as in a build, the folder of this library.
HX_PLATFORM_API std::filesystem::path ComponentFolder();

}  // namespace hx
