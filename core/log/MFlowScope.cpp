#include "core/log/MFlowScope.h"

#include <atomic>
#include <cstring>

namespace hx {
namespace {

constinit std::atomic<MFlowLoggerImplementation*> g_flow_logger = nullptr;

}  // namespace

MFlowLoggerImplementation* SetFlowLogger(MFlowLoggerImplementation* flow_logger) {
    return g_flow_logger.exchange(flow_logger);
}

MFlowScope::MFlowScope(const char* method_name, const char* source_name, int32_t line,
                       MLogger& logger) noexcept
    : m_logger(logger), m_method_name(method_name), m_source_name(source_name), m_line(line) {
    if (MFlowLoggerImplementation* const follower = g_flow_logger) {
        follower->OnScopeEntered(source_name, method_name);
    }
    if (logger.Writes(MLogSeverity::kFlow)) Log(L"Entering ");
}

MFlowScope::~MFlowScope() {
    if (m_logger.Writes(MLogSeverity::kFlow)) Log(L"Leaving ");
    if (MFlowLoggerImplementation* const follower = g_flow_logger) {
        follower->OnScopeLeft(m_source_name, m_method_name);
    }
}

void MFlowScope::Log(const wchar_t* what) const noexcept {
    try {
        std::wstring message = what;
        message.append(m_method_name, m_method_name + std::strlen(m_method_name));
        m_logger.Log({MLogSeverity::kFlow, m_source_name, m_line, m_method_name, message});
    } catch (...) {
        // Logging never raises; without memory the record is lost.
    }
}

}  // namespace hx
