#include "controls/parts/GainChooser.h"

#include <algorithm>
#include <limits>

#include "controls/api/ApiOperation.h"
#include "controls/parts/DialogParts.h"
#include "controls/parts/PageControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "platform/com/text_array.h"

namespace hx {
namespace {

constexpr uint32_t kUsualGain = 1;
constexpr uint32_t kHighIsoGain = 4;

constexpr std::wstring_view kHighIsoModels[] = {L"KT05FxR3PA", L"KT05FxR3PTB", L"KT05FxR3W"};

bool IsHighIsoModel(std::wstring_view device_internal_name) {
    return std::ranges::find(kHighIsoModels, device_internal_name) != std::end(kHighIsoModels);
}

[[noreturn]] void Refuse(MErrorLocation& location, int32_t line, const wchar_t* error_name,
                         const std::wstring& text) {
    location.Set(nullptr, line);
    MError error = MakeError(location, error_name);
    error.AddParameter(L"text", text);
    Throw(location, error);
}

}  // namespace

uint32_t GainOfText(const std::wstring& text, MErrorLocation& location) {
    constexpr uint64_t kMost = std::numeric_limits<uint32_t>::max();
    size_t at = std::min(text.find_first_not_of(L" \t\n\v\f\r"), text.size());
    const bool negative = at < text.size() && text[at] == L'-';
    if (negative || (at < text.size() && text[at] == L'+')) ++at;
    const size_t first_digit = at;
    uint64_t number = 0;
    for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
        number = number * 10 + static_cast<uint64_t>(text[at] - L'0');
        if (number > kMost) Refuse(location, 47, L"stoul argument out of range", text);
    }
    if (at == first_digit) Refuse(location, 49, L"invalid stoul argument", text);
    // As the library function of that name does it, with the 32 bits that it has there.
    return static_cast<uint32_t>(negative ? kMost + 1 - number : number);
}

void GainChooser::Hide() {
    for (const uint32_t id : {uint32_t{kGainList}, uint32_t{kGainLabel}, kHighIsoBox}) {
        ShowControl(m_dialog, id, false);
    }
}

void GainChooser::Fill() {
    auto* const list = m_dialog.FindAs<ui::ComboBox>(kGainList);
    if (!list) return;
    list->Clear();
    m_page.SupportedGains().clear();
    // The gains of the scanner that was there before say nothing of this one.
    if (!m_page.Session().IsDeviceCurrent()) return Hide();
    const std::optional<std::vector<std::wstring>> texts = AskForGains();
    if (!texts) {
        list->Add(L"1");
        return ShowList(false);
    }
    std::vector<uint32_t> gains;
    for (const std::wstring& text : *texts) {
        gains.push_back(GainOfText(text, m_location));
        list->Add(text);
    }
    m_page.SupportedGains() = gains;
    // Where there is a box for the two gains of a model, the list is not for it.
    const bool has_box = m_dialog.Find(kHighIsoBox) != nullptr;
    const bool high_iso = has_box && IsHighIsoModel(m_page.Session().Target().device_internal_name);
    ShowList(gains.size() >= 2 && !high_iso && IsOn(RegistrySwitch::kAllowHardwareDialogGainDropDown));
    ShowControl(m_dialog, kHighIsoBox, high_iso);
}

std::optional<std::vector<std::wstring>> GainChooser::AskForGains() {
    const ApiOperation operation(m_location, &m_page);
    constexpr wchar_t kCall[] = L"GetSupportedAnalogImagerGains";
    try {
        SafeArray gains;
        operation.Call(85, kCall, m_page.Session().Handle(),
                       &ICalibrationHandle::GetSupportedAnalogImagerGains, gains.put());
        std::optional<std::vector<std::wstring>> texts = TextsOf(gains.get());
        if (!texts) operation.Fail(88, kCall);
        return texts;
    } catch (const MException& exception) {
        operation.Log(91, exception);
        return {};
    }
}

void GainChooser::ShowList(bool visible) {
    ShowControl(m_dialog, kGainList, visible);
    ShowControl(m_dialog, kGainLabel, visible);
}

void GainChooser::ShowGain() {
    ShowGainInList();
    if (auto* const box = m_dialog.FindAs<ui::CheckBox>(kHighIsoBox)) {
        box->SetChecked(m_page.Data().gain == kHighIsoGain);
    }
}

void GainChooser::ShowGainInList() {
    auto* const list = m_dialog.FindAs<ui::ComboBox>(kGainList);
    if (!list) return;
    const std::vector<uint32_t>& gains = m_page.SupportedGains();
    const auto found = std::ranges::find(gains, m_page.Data().gain);
    list->Select(found != gains.end() ? static_cast<int32_t>(found - gains.begin()) : 0);
}

bool GainChooser::TakeChosen() {
    const auto* const list = m_dialog.FindAs<ui::ComboBox>(kGainList);
    const std::vector<uint32_t>& gains = m_page.SupportedGains();
    if (!list || list->Selected() < 0) return false;
    const auto row = static_cast<size_t>(list->Selected());
    if (row >= gains.size()) return false;
    m_page.Data().gain = gains[row];
    return true;
}

bool GainChooser::TakeHighIso() {
    const auto* const box = m_dialog.FindAs<ui::CheckBox>(kHighIsoBox);
    if (!box) return false;
    m_page.Data().gain = box->IsChecked() ? kHighIsoGain : kUsualGain;
    return true;
}

}  // namespace hx
