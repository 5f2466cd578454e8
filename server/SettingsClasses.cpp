#include "server/SettingsClasses.h"

#include <array>
#include <iterator>

#include "hxapi/HXScannerCtrlsClasses.h"
#include "server/CCoMHXConnSettings.h"
#include "server/CCoMHXMeasSettings.h"
#include "server/CCoMHXSettingsFactory.h"

namespace hx {
namespace {

constexpr SettingsClass kClasses[] = {
    {{CLSID_CoMHXMeasSettings, kProgIdHXMeasSettings, L"Orvel.HXScannerCtrls.HXMeasSettings",
      L"CoMHXMeasSettings", L"CoMHXMeasSettings Class", L"", &CreateObject<CCoMHXMeasSettings>},
     104,
     {}},
    {{CLSID_CoMHXSettingsFactory, kProgIdHXSettingsFactory, L"Orvel.HXScannerCtrls.HXSettingsFactory",
      L"CoMHXSettingsFactory", L"CoMHXSettingsFactory Class", L"Both", &CreateObject<CCoMHXSettingsFactory>},
     105,
     {}},
    {{CLSID_CoMHXConnSettings, kProgIdHXConnSettings, L"Orvel.HXScannerCtrls.HXConnSettings",
      L"CoMHXConnSettings", L"CoMHXConnSettings Class", L"", &CreateObject<CCoMHXConnSettings>},
     209,
     {}},
};

constexpr auto kRows = [] {
    std::array<ClassRow, std::size(kClasses)> rows{};
    for (size_t i = 0; i < rows.size(); ++i) rows[i] = kClasses[i].row;
    return rows;
}();

}  // namespace

SettingsClasses::SettingsClasses() noexcept : m_classes(kRows) {}

std::span<const SettingsClass> SettingsClasses::List() {
    return kClasses;
}

}  // namespace hx
