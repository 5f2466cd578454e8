#include "apps/hxhost/FaultPanel.h"

#include <array>
#include <optional>
#include <string_view>

#include "apps/hxhost/ids.h"
#include "hxapi/HXApiErrors.h"
#include "platform/system/utf8.h"

namespace hxhost {
namespace {

constexpr std::array kResults{E_FAIL,           E_ACCESSDENIED, E_OUTOFMEMORY, HX_E_NOTCONNECTED,
                              HX_E_NOTACQUIRED, HX_E_NOTFOUND,  S_OK};
constexpr wchar_t kFirstOperation[] = L"ActivateDynamicSettings";
constexpr int32_t kMostTimes = 1000;
constexpr int32_t kLongestDelay_ms = 60000;

// A whole number without a sign, in the range; blanks around it do no harm.
std::optional<int32_t> NumberIn(std::wstring_view text, int32_t smallest, int32_t largest) {
    while (!text.empty() && text.front() == L' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ') text.remove_suffix(1);
    if (text.empty()) return std::nullopt;
    int32_t number = 0;
    for (const wchar_t digit : text) {
        if (digit < L'0' || digit > L'9') return std::nullopt;
        number = number * 10 + (digit - L'0');
        if (number > largest) return std::nullopt;
    }
    return number >= smallest ? std::optional(number) : std::nullopt;
}

}  // namespace

void FaultPanel::BindTo(hx::ui::Dialog& dialog) {
    dialog.Bind(IDC_OPERATION, m_operation);
    dialog.Bind(IDC_RESULT, m_result);
    dialog.Bind(IDC_TIMES, m_times);
    dialog.Bind(IDC_DELAY, m_delay);
    dialog.Bind(IDC_HANG_UP, m_hang_up);
    dialog.Bind(IDC_INJECT, m_inject);
    dialog.Bind(IDC_CLEAR, m_clear);
}

void FaultPanel::Fill() {
    for (std::wstring& operation : m_scanner.Operations()) m_operation.Add(std::move(operation));
    if (!Choose(m_operation, kFirstOperation)) m_operation.Select(0);
    for (const HRESULT result : kResults) {
        m_result.Add(result == S_OK ? m_texts.Text(IDS_SLOWLY) : NameOf(result));
    }
    m_result.Select(0);
    m_times.SetText(L"1");
    m_delay.SetText(L"0");
    m_operation.SetToolTip(m_texts.Text(IDS_TIP_OPERATION));
    m_result.SetToolTip(m_texts.Text(IDS_TIP_RESULT));
    m_times.SetToolTip(m_texts.Text(IDS_TIP_TIMES));
    m_delay.SetToolTip(m_texts.Text(IDS_TIP_DELAY));
    m_hang_up.SetToolTip(m_texts.Text(IDS_TIP_HANG_UP));
    m_inject.SetToolTip(m_texts.Text(IDS_TIP_INJECT));
    m_clear.SetToolTip(m_texts.Text(IDS_TIP_CLEAR));
}

bool FaultPanel::OnCommand(const hx::ui::Control& control) {
    if (&control == &m_inject) {
        Inject();
    } else if (&control == &m_clear) {
        m_scanner.ClearFaults();
        m_log.Pending().Clear();
        m_tell(m_texts.Text(IDS_FAULTS_CLEARED));
    } else {
        return false;
    }
    return true;
}

void FaultPanel::Inject() {
    const auto times = NumberIn(m_times.Text(), 1, kMostTimes);
    const auto delay_ms = NumberIn(m_delay.Text(), 0, kLongestDelay_ms);
    if (!times || !delay_ms) {
        return Refuse(times ? IDS_BAD_DELAY : IDS_BAD_TIMES, times ? m_delay : m_times);
    }
    const HRESULT answer = kResults.at(static_cast<size_t>(m_result.Selected()));
    const bool succeeds = answer == S_OK;
    if (succeeds && *delay_ms == 0 && !m_hang_up.IsChecked()) return Refuse(IDS_SLOW_HOW, m_delay);
    const Fault fault{Chosen(m_operation),
                      answer,
                      *times,
                      static_cast<uint32_t>(*delay_ms),
                      m_hang_up.IsChecked(),
                      succeeds ? std::wstring() : m_texts.Text(IDS_FAULT_TEXT)};
    m_log.Fetch();
    const HRESULT result = m_scanner.Inject(fault);
    if (SUCCEEDED(result)) {
        m_log.Pending().Add(hx::ToUtf8(fault.operation), answer, *times);
        m_tell(m_texts.Text(succeeds ? IDS_SLOW_READY : IDS_FAULT_READY, {{L"operation", fault.operation}}));
    } else {
        m_tell(m_texts.Text(IDS_REFUSED, {{L"call", fault.operation}, {L"reason", NameOf(result)}}));
    }
}

void FaultPanel::Refuse(uint32_t why, hx::ui::Edit& wrong) {
    m_tell(m_texts.Text(why));
    wrong.SetFocus();
    wrong.SelectAll();
}

}  // namespace hxhost
