#include "simulator/calls/CallLog.h"

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
    std::wstring call = CallText(on, operation, arguments, result);
    const std::lock_guard guard(m_mutex);
    m_calls.push_back(std::move(call));
    if (m_calls.size() <= m_most_calls) return;
    m_calls.pop_front();
    ++m_lost;
}

std::wstring CallLog::Take() {
    std::deque<std::wstring> calls;
    uint64_t lost = 0;
    {
        const std::lock_guard guard(m_mutex);
        calls.swap(m_calls);
        std::swap(lost, m_lost);
    }
    if (lost != 0) calls.push_front(CallText(L"log", L"lost", L"[" + std::to_wstring(lost) + L"]", S_OK));
    std::wstring json = L"[";
    for (const std::wstring& call : calls) {
        if (json.size() > 1) json += L",\n";
        json += call;
    }
    return json += L"]";
}

}  // namespace hx::simulator
