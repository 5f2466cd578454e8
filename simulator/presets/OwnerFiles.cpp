#include "simulator/presets/OwnerFiles.h"

#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/folders.h"
#include "simulator/presets/FactoryList.h"
#include "simulator/presets/OwnerFileName.h"
#include "simulator/presets/PresetFile.h"
#include "simulator/presets/StoreFailure.h"

namespace hx::simulator {
namespace {

namespace fs = std::filesystem;

constexpr uint32_t kMaxBackupsKey = 136;
constexpr int32_t kUsualMaxBackups = 10;
constexpr size_t kMostListsAside = 10;
constexpr std::chrono::seconds kPatience{5};

// How many archives an owner may have.
size_t MostArchives() {
    int32_t most = 0;
    Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(kMaxBackupsKey).Get(most, kUsualMaxBackups);
    return most > 0 ? static_cast<size_t>(most) : 0;
}

HRESULT Refuse(const fs::path& path, const wchar_t* why, std::wstring& reason) {
    reason = PathText(path) + L": " + why;
    return E_FAIL;
}

}  // namespace

OwnerFiles::OwnerFiles(const fs::path& folder, std::wstring_view owner, const ScannerModel& model)
    : m_owner(owner),
      m_model(model),
      m_file(ListFile(folder, owner)),
      m_lock_file(folder / (OwnerFileName(owner) + ".lock")),
      m_archive(folder / "archive", OwnerFileName(owner)) {}

fs::path OwnerFiles::ListFile(const fs::path& folder, std::wstring_view owner) {
    return folder / (OwnerFileName(owner) + ".xml");
}

HRESULT OwnerFiles::Lock(std::optional<FileLock>& lock, std::wstring& reason) const {
    if (const FileError failed = MakeFolder(m_file.parent_path())) return ResultOf(failed, reason);
    lock.emplace(m_lock_file, kPatience);
    if (lock->Error().code == std::errc::timed_out) return Refuse(m_file, L"is in use", reason);
    return ResultOf(lock->Error(), reason);
}

HRESULT OwnerFiles::Read(StoredList& stored, std::wstring& reason) const {
    stored = {};
    std::error_code error;
    const fs::file_status status = fs::status(m_file, error);
    if (status.type() == fs::file_type::not_found) return S_OK;
    if (error) return ResultOf({error, m_file}, reason);
    // Anything else might never come to an end.
    if (!fs::is_regular_file(status)) return Refuse(m_file, L"is no file", reason);
    if (fs::file_size(m_file, error) > kMostPresetBytes) {
        return error ? ResultOf({error, m_file}, reason) : Refuse(m_file, L"is too large", reason);
    }
    if (const FileError failed = ReadFile(m_file, stored.bytes)) return ResultOf(failed, reason);
    PresetFile read;
    if (!ReadPresetFile(stored.bytes, read)) {
        stored.condition = read.is_newer ? StoredList::kNewer : StoredList::kDamaged;
    } else if (read.owner != m_owner) {
        return Refuse(m_file, L"is another owner's", reason);
    } else if (read.model != m_model.name) {
        stored.condition = StoredList::kForeign;
    } else {
        stored.condition = read.left_out != 0 ? StoredList::kPartly : StoredList::kWhole;
        stored.list = std::move(read);
    }
    return S_OK;
}

HRESULT OwnerFiles::ReadArchived(std::vector<StoredPreset>& presets, std::wstring& reason) const {
    std::vector<fs::path> archives;
    if (const FileError failed = m_archive.List(PresetArchive::Kind::kArchive, archives)) {
        return ResultOf(failed, reason);
    }
    for (const fs::path& path : archives) {
        std::string bytes;
        std::error_code error;
        PresetFile read;
        // One that cannot be read leaves an older one to be taken.
        if (fs::file_size(path, error) > kMostPresetBytes || ReadFile(path, bytes) ||
            !ReadPresetFile(bytes, read) || read.owner != m_owner) {
            continue;
        }
        std::erase_if(read.presets,
                      [](const StoredPreset& preset) { return !IsUsers(preset.profile.ProfileName); });
        presets = std::move(read.presets);
        if (!presets.empty()) break;
    }
    return S_OK;
}

HRESULT OwnerFiles::Keep(const StoredList& stored, std::wstring& reason) const {
    using Kind = PresetArchive::Kind;
    const bool no_archives = MostArchives() == 0;
    if (stored.IsToldByList() && no_archives) return S_OK;
    const Kind instead = no_archives ? Kind::kListAside : Kind::kArchive;
    const Kind kind = stored.condition == StoredList::kDamaged ? Kind::kDamaged : instead;
    return ResultOf(m_archive.Keep(stored.bytes, kind), reason);
}

HRESULT OwnerFiles::SetAside(std::wstring& reason) const {
    return ResultOf(m_archive.Take(m_file), reason);
}

HRESULT OwnerFiles::Replace(const StoredList& stored, bool keep, PresetList list,
                            std::wstring& reason) const {
    HRESULT result = keep ? Keep(stored, reason) : S_OK;
    if (SUCCEEDED(result)) result = Write(std::move(list), reason);
    // Not before: until the list is there, what it was restored from may be the oldest archive.
    if (SUCCEEDED(result) && keep) {
        m_archive.Trim(PresetArchive::Kind::kArchive, MostArchives());
        m_archive.Trim(PresetArchive::Kind::kListAside, kMostListsAside);
    }
    return result;
}

HRESULT OwnerFiles::Write(PresetList list, std::wstring& reason) const {
    const PresetFile written{std::move(list), m_owner, m_model.name};
    const std::string bytes = WritePresetFile(written);
    if (bytes.size() > kMostPresetBytes) return Refuse(m_file, L"would be too large", reason);
    return ResultOf(WriteFileAtomically(m_file, bytes), reason);
}

}  // namespace hx::simulator
