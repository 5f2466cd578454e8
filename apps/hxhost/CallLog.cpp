#include "apps/hxhost/CallLog.h"

#include <nlohmann/json.hpp>

#include "apps/hxhost/CallWords.h"
#include "apps/hxhost/ids.h"

namespace hxhost {

void CallLog::Fetch() {
    const auto calls = nlohmann::json::parse(m_scanner.TakeCalls(), nullptr, false);
    if (!calls.is_array()) return;
    std::vector<std::wstring> lines;
    for (const nlohmann::json& call : calls) {
        m_state = StateTold(call).value_or(m_state);
        m_preview_fed = PreviewTold(call).value_or(m_preview_fed);
        CallInWords words = InWords(call, m_texts);
        if (m_questions || !words.is_question) lines.push_back(std::move(words.text));
    }
    Append(lines);
}

void CallLog::Append(const std::vector<std::wstring>& lines) {
    m_list.Append(lines, [this](const std::wstring& line, int32_t count) {
        return m_texts.Text(IDS_REPEATED, {{L"call", line}, {L"count", std::to_wstring(count)}});
    });
}

}  // namespace hxhost
