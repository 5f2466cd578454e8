#include "simulator/recorder/RecordingFile.h"

#include <utility>

#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "platform/system/utf8.h"

namespace hx::simulator {
namespace {

std::wstring Reason(const wchar_t* what, const std::filesystem::path& path, const std::error_code& error) {
    const auto text = [](const std::string& bytes) { return FromUtf8(bytes).value_or(L"?"); };
    std::wstring reason = what;
    reason += L" \"";
    reason += text(path.native());
    reason += L"\"";
    if (error) reason.append(L": ").append(text(error.message()));
    return reason;
}

}  // namespace

RecordingFile::RecordingFile(std::filesystem::path target) : m_target(std::move(target)) {
    // Another process may be recording to the same place.
    m_temporary = m_target;
    m_temporary += '.' + std::to_string(SystemClock().WallMicroseconds());
    m_temporary += ".part";
}

RecordingFile::~RecordingFile() {
    m_stream.close();
    std::error_code error;
    if (m_is_there) std::filesystem::remove(m_temporary, error);
}

bool RecordingFile::Open(std::wstring& reason) {
    if (const FileError error = MakeFolder(m_target.parent_path())) {
        reason = Reason(L"The folder of the recording cannot be made:", error.path, error.code);
        return false;
    }
    std::error_code error;
    const bool is_folder = std::filesystem::is_directory(m_target, error);
    if (!is_folder) m_stream.open(m_temporary, std::ios::binary | std::ios::trunc);
    m_is_there = m_stream.is_open();
    if (!m_is_there) reason = Reason(L"The recording cannot be written to", m_target, error);
    return m_is_there;
}

void RecordingFile::Write(std::string_view text) {
    m_stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

bool RecordingFile::Finish(std::wstring& reason) {
    m_stream.close();
    if (m_stream.fail()) {
        reason = Reason(L"The recording could not be written to", m_target, {});
        return false;
    }
    if (const FileError error = PublishFile(m_temporary, m_target)) {
        reason = Reason(L"The recording could not be finished as", m_target, error.code);
        return false;
    }
    m_is_there = false;
    return true;
}

}  // namespace hx::simulator
