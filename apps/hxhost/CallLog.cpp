#include "apps/hxhost/CallLog.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "apps/hxhost/CallWords.h"
#include "apps/hxhost/ids.h"

namespace hxhost {
namespace {

// Followed by the name of the profile; one without a name is a copy that nobody is to see.
constexpr char kProfile[] = "preset:";

}  // namespace

void CallLog::Fetch() {
    const auto calls = nlohmann::json::parse(m_scanner.TakeCalls(), nullptr, false);
    if (!calls.is_array()) return;
    std::vector<std::wstring> lines;
    for (const nlohmann::json& call : calls) {
        if (!call.is_object()) continue;
        m_state = StateTold(call).value_or(m_state);
        m_preview_fed = PreviewTold(call).value_or(m_preview_fed);
        Notice(call);
        CallInWords words = InWords(
            call, m_texts, [this](const std::wstring& name) { return m_scanner.DisplayNameOf(name); });
        const bool is_news = IsNews(call) && !words.is_question;
        if (m_questions || is_news) lines.push_back(std::move(words.text));
    }
    Append(lines);
}

void CallLog::Notice(const nlohmann::json& call) {
    const std::string operation = call.value("op", "");
    m_edited = m_edited || (call.value("on", "").starts_with(kProfile) && operation.starts_with("Set"));
    m_faults_used_up = m_pending.UseUp(operation, call.value("result", S_OK)) || m_faults_used_up;
}

bool CallLog::IsNews(const nlohmann::json& call) {
    if (call.value("result", 0) != 0) return true;
    const std::string operation = call.value("op", "");
    const auto values = call.find("args");
    const std::string object = call.value("on", "");
    if (!object.starts_with(kProfile) || !operation.starts_with("Set") || values == call.end()) return true;
    if (object == kProfile) return false;
    return std::exchange(m_values[object + "." + operation], values->dump()) != values->dump();
}

void CallLog::Append(const std::vector<std::wstring>& lines) {
    m_list.Append(lines, [this](const std::wstring& line, int32_t count) {
        return m_texts.Text(IDS_REPEATED, {{L"call", line}, {L"count", std::to_wstring(count)}});
    });
}

}  // namespace hxhost
