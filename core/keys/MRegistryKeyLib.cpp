#include "core/keys/MRegistryKeyLib.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/errors/MErrorLocation.h"
#include "core/keys/ApplicationKeys.h"
#include "core/keys/ConfigurationKeys.h"
#include "core/keys/InstallationKeys.h"
#include "core/keys/MRegistryKeyElementBase.h"
#include "core/keys/ResearchKeys.h"
#include "core/keys/SimulatorKeys.h"
#include "core/keys/SupportedDeviceKeys.h"

namespace Orvel::RegistryKeys {
namespace {

constexpr std::span<const RegistryKeyRow> kAreas[] = {
    kApplicationKeys, kConfigurationKeys, kInstallationKeys,
    kResearchKeys,    kSimulatorKeys,     kSupportedDeviceKeys,
};

constexpr bool EachIdIsThereOnce() {
    std::array<bool, MRegistryKeyLib::kKeyCount> there{};
    for (const auto area : kAreas) {
        for (const RegistryKeyRow& row : area) {
            if (row.id >= there.size() || std::exchange(there[row.id], true)) return false;
        }
    }
    return std::ranges::find(there, false) == there.end();
}
static_assert(EachIdIsThereOnce());

constexpr auto kRows = [] {
    std::array<RegistryKeyRow, MRegistryKeyLib::kKeyCount> rows{};
    for (const auto area : kAreas) {
        for (const RegistryKeyRow& row : area) rows[row.id] = row;
    }
    return rows;
}();

// The words for the preview's key are older than the form of all the others.
constexpr uint32_t kColorBlend = 67;

constexpr bool HasDescription(const RegistryKeyRow& row) {
    return row.id == kColorBlend ||
           (row.description.find(L": ") != std::wstring_view::npos &&
            row.description.find(L'[') != std::wstring_view::npos && row.description.back() == L']');
}

constexpr bool IsComplete(const RegistryKeyRow& row) {
    const std::wstring_view path = row.place.path;
    const RegistryKeyRow& first_of_group = kRows[row.group];
    return !path.empty() && path.front() != L'\\' && path.back() != L'\\' && !row.value_name.empty() &&
           row.group <= row.id && first_of_group.group == row.group && HasDescription(row);
}
static_assert(std::ranges::all_of(kRows, IsComplete));

template <size_t... id>
auto MakeElements(std::index_sequence<id...>) {
    return std::array{MRegistryKeyElementBase(kRows[id])...};
}

}  // namespace

const IRegistryKeyElementBase& MRegistryKeyLib::GetRegistryKey(uint32_t key_id) {
    static const auto elements = MakeElements(std::make_index_sequence<kKeyCount>());
    if (key_id >= elements.size()) {
        static hx::MErrorLocation location("MRegistryKeyLib", "GetRegistryKey");
        location.Set(nullptr, 66);
        hx::MError error = hx::MakeError(location, L"UndefinedKeyId");
        error.AddParameter(L"keyId", key_id);
        hx::Throw(location, error);
    }
    return elements[key_id];
}

std::span<const RegistryKeyRow, MRegistryKeyLib::kKeyCount> MRegistryKeyLib::Rows() {
    return kRows;
}

}  // namespace Orvel::RegistryKeys
