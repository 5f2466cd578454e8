#include "simulator/calls/CallLog.h"

#include "platform/system/utf8.h"
#include "simulator/calls/JsonText.h"

namespace hx::simulator {
namespace {

std::wstring CallText(std::wstring_view on, std::wstring_view operation, std::wstring_view arguments,
                      HRESULT result) {
    std::wstring json = L"{\"on\":";
    AppendJsonText(json, on);
    json += L",\"op\":";
    AppendJsonText(json, operation);
    json.append(L",\"args\":").append(arguments);
    json.append(L",\"result\":").append(std::to_wstring(result)).append(L"}");
    return json;
}

}  // namespace

void CallLog::Enter(std::wstring_view on, std::wstring_view operation, std::wstring_view arguments,
                    HRESULT result) {
    std::string call = ToUtf8(CallText(on, operation, arguments, result));
    const size_t bytes = call.size();
    const std::lock_guard guard(m_mutex);
    m_calls.push_back(std::move(call));
    m_bytes += bytes;
    while (m_calls.size() > m_most_calls || m_bytes > m_most_bytes) {
        m_bytes -= m_calls.front().size();
        m_calls.pop_front();
        ++m_lost;
    }
}

std::wstring CallLog::Take() {
    std::deque<std::string> calls;
    uint64_t lost = 0;
    {
        const std::lock_guard guard(m_mutex);
        calls.swap(m_calls);
        m_bytes = 0;
        std::swap(lost, m_lost);
    }
    std::wstring json = L"[";
    if (lost != 0) json += CallText(L"log", L"lost", L"[" + std::to_wstring(lost) + L"]", S_OK);
    for (; !calls.empty(); calls.pop_front()) {
        if (json.size() > 1) json += L",\n";
        json += FromUtf8(calls.front()).value();
    }
    return json += L"]";
}

}  // namespace hx::simulator
