// Tells the module's log, and whoever else follows the flow, that a method is entered and left:
//
//     const MFlowScope scope("CCoMHXConnSettings::ReadXmlBstr", "CCoMHXConnSettings", 21);
//
// Any thread; costs next to nothing while nobody listens. Never raises.
#pragma once

#include <cstdint>

#include "core/log/ModuleLogger.h"

namespace hx {

// Follows the flow. The names live as long as the module.
class MFlowLoggerImplementation {
public:
    virtual ~MFlowLoggerImplementation() = default;
    virtual void OnScopeEntered(const char* source_name, const char* method_name) noexcept = 0;
    virtual void OnScopeLeft(const char* source_name, const char* method_name) noexcept = 0;
};

// Installs `flow_logger`, which the caller keeps alive until it is replaced; null: nobody listens. Gives the
// one installed before, null likewise.
MFlowLoggerImplementation* SetFlowLogger(MFlowLoggerImplementation* flow_logger);

class MFlowScope {
public:
    // Both names are literals. The line is a number that the method keeps, whatever happens to the file.
    MFlowScope(const char* method_name, const char* source_name, int32_t line,
               MLogger& logger = ModuleLogger()) noexcept;
    MFlowScope(const MFlowScope&) = delete;
    MFlowScope& operator=(const MFlowScope&) = delete;
    ~MFlowScope();

private:
    void Log(const wchar_t* what) const noexcept;

    MLogger& m_logger;
    const char* const m_method_name;
    const char* const m_source_name;
    const int32_t m_line;
};

}  // namespace hx
