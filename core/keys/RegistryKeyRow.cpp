#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

std::optional<hx::RegistryRoot> RootOf(const RegistryKeyRow& row) {
    switch (row.place.root) {
        case kUser:
            return hx::RegistryRoot::kCurrentUser;
        case kMachine:
            return hx::RegistryRoot::kLocalMachine;
        default:
            return std::nullopt;
    }
}

std::wstring FullPath(const RegistryKeyRow& row, std::wstring_view company) {
    std::wstring path;
    // The two roots spell the software key differently.
    if (row.place.root == kUser) path = L"HKEY_CURRENT_USER\\Software\\";
    if (row.place.root == kMachine) path = L"HKEY_LOCAL_MACHINE\\SOFTWARE\\";
    if ((row.flags & kView32) != 0) path += L"Wow6432Node\\";
    for (const std::wstring_view part : {company, row.place.path}) {
        path += part;
        path += L'\\';
    }
    path += row.value_name;
    return path;
}

}  // namespace Orvel::RegistryKeys
