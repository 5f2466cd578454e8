#include "controls/diagnostics/DiagnosticValues.h"

#include "controls/messages/OperatorWords.h"
#include "core/locale/CFormattedText.h"
#include "platform/system/user_date.h"

namespace hx {
namespace {

using HX = MHXFamilyDeviceProperties;

constexpr uint32_t kStringUnknownDate = 34;
constexpr uint32_t kStringInvalidDate = 1020;

template <auto kMember>
std::wstring TextOf(const HX& device) {
    return device.*kMember;
}

// Without a time; a date that is not known is all zeros.
template <CalendarDate HX::*kMember>
std::wstring DateOf(const HX& device) {
    const CalendarDate& date = device.*kMember;
    if (date.Year == 0 && date.Month == 0 && date.Day == 0) return TextOrNumber(kStringUnknownDate);
    const auto text = FormatShortDate({date.Year, date.Month, date.Day});
    return text ? *text : TextOrNumber(kStringInvalidDate);
}

// Of the one model whose mount can be turned.
bool HasRotatableMount(const HX& device) {
    return device.InternalName == L"T820";
}

std::wstring MountRotationOf(const HX& device) {
    static constexpr struct {
        std::wstring_view name;
        uint32_t degrees;
    } kRotations[] = {{L"30deg", 30}, {L"60deg", 60}, {L"90deg", 90}};
    uint32_t degrees = 0;
    const auto chosen = device.Configurations.find(L"MountRotation");
    for (const auto& rotation : kRotations) {
        if (chosen != device.Configurations.end() && chosen->second == rotation.name) {
            degrees = rotation.degrees;
        }
    }
    return FormatText(L'.', L"%u\u00B0", {degrees});
}

constexpr DiagnosticValue kValues[] = {
    {228, 235, &TextOf<&HX::DisplayName>},
    {229, 236, &TextOf<&HX::ScannerSerialNumber>},
    {230, 231, &DateOf<&HX::ScannerManufacturingDate>},
    {233, 234, &DateOf<&HX::CalibrationDate>},
    {232, 238, &MountRotationOf, &HasRotatableMount},
    {239, 242, &TextOf<&HX::FirmwareServerVersion>},
    {245, 244, &TextOf<&HX::ScannerHardwareVersion>},
};

}  // namespace

std::span<const DiagnosticValue> DiagnosticValues() {
    return kValues;
}

}  // namespace hx
