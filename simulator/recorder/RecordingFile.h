// A recording on disk: under a temporary name beside its own until it is finished, so that nobody reads half
// of one. One thread at a time.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace hx::simulator {

class RecordingFile {
public:
    explicit RecordingFile(std::filesystem::path target);
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;
    // What is not finished is removed.
    ~RecordingFile();

    // With the folders above it. False with a reason for a person, as below.
    bool Open(std::wstring& reason);
    // After the first failure nothing more is written; Finish tells it.
    void Write(std::string_view text);
    // On disk under its own name afterwards; another file of that name is replaced.
    bool Finish(std::wstring& reason);

    const std::filesystem::path& Target() const { return m_target; }

private:
    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::ofstream m_stream;
    bool m_is_there = false;
};

}  // namespace hx::simulator
