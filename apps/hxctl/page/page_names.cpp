#include "apps/hxctl/page/page_names.h"

#include <algorithm>
#include <iterator>

#include "hxapi/HXScannerCtrlsClasses.h"

namespace hxctl {
namespace {

constexpr PageName kPages[] = {
    {"measurement", kProgIdHXMeasSettingsCtrl, "HX", true},
    {"handheld", kProgIdHXHandheldMeasSettingsCtrl, "Handheld", true},
    {"diagnostics", kProgIdHXDiagnosticsCtrl, "HX", false},
};

}  // namespace

const PageName* FindPage(std::string_view name) {
    const auto* const found =
        std::ranges::find_if(kPages, [&](const PageName& page) { return name == page.name; });
    return found != std::end(kPages) ? found : nullptr;
}

std::string PageNames(std::string_view separator) {
    std::string names;
    for (const PageName& page : kPages) {
        if (!names.empty()) names += separator;
        names += page.name;
    }
    return names;
}

std::string NoPageText(std::string_view name) {
    return "no page \"" + std::string(name) + "\": there are " + PageNames(" ");
}

}  // namespace hxctl
