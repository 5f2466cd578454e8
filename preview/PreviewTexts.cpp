#include "preview/PreviewTexts.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/module/this_module.h"
#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"

namespace hx::preview {
namespace {

namespace fs = std::filesystem;

// The ids of HXPreview.rc.
struct TextRow {
    uint32_t id;
    std::wstring PreviewTexts::*text;
};
constexpr uint32_t kMillimetres = 1;
constexpr TextRow kTexts[] = {
    {2, &PreviewTexts::weak},      {3, &PreviewTexts::saturated},     {10, &PreviewTexts::too_bright},
    {11, &PreviewTexts::too_dark}, {12, &PreviewTexts::nothing_seen},
};

// The files of satellites that serve the language, the best one first.
std::vector<fs::path> SatellitesFor(const ModuleHandle& module, const std::string& tag) {
    std::vector<fs::path> files;
    const fs::path own(ToUtf8(module->FileName()));
    const std::string prefix = own.stem().string() + "_";
    const std::string language = prefix + tag.substr(0, tag.find('-')) + "-";
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(own.parent_path(), error)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(language) && name.ends_with(".dll")) files.push_back(entry.path());
    }
    const std::string exact = prefix + tag + ".dll";
    std::ranges::sort(files, {}, [&](const fs::path& file) {
        return std::pair(file.filename().string() != exact, file.filename().string());
    });
    return files;
}

ModuleHandle SatelliteOf(const ModuleHandle& module, const std::string& tag) {
    for (const fs::path& file : SatellitesFor(module, tag)) {
        const auto name = FromUtf8(file.string());
        ModuleError error;
        if (!name) continue;
        if (ModuleHandle satellite = LoadResourceModule(*name, error)) return satellite;
    }
    return nullptr;
}

std::wstring TextOf(const ModuleHandle& satellite, const ModuleHandle& module, uint32_t id) {
    for (const ModuleHandle& each : {satellite, module}) {
        const std::wstring* const text = each ? each->String(id) : nullptr;
        if (text != nullptr) return *text;
    }
    return {};
}

}  // namespace

const std::wstring& PreviewTexts::Of(Hint hint) const {
    static const std::wstring none;
    switch (hint) {
        case Hint::too_bright:
            return too_bright;
        case Hint::too_dark:
            return too_dark;
        case Hint::nothing_seen:
            return nothing_seen;
        case Hint::none:
            break;
    }
    return none;
}

PreviewTexts LoadTexts(const std::string& language_tag) {
    const ModuleHandle module = ThisModule();
    const ModuleHandle satellite = SatelliteOf(module, language_tag);
    PreviewTexts texts;
    texts.scale.unit = TextOf(satellite, module, kMillimetres);
    texts.scale.decimal_separator = DecimalSeparatorOf(language_tag).value_or(L'.');
    for (const TextRow& row : kTexts) texts.*row.text = TextOf(satellite, module, row.id);
    return texts;
}

}  // namespace hx::preview
