#include "controls/api/ApiOperation.h"

#include <string>

#include "core/errors/MErrorCom.h"
#include "core/log/ModuleLogger.h"
#include "platform/com/boundary.h"

namespace hx {

MError ApiOperation::Raised(int32_t line, std::wstring_view call) const {
    m_location.Set(m_object, line);
    return MakeError(m_location, call);
}

void ApiOperation::Fail(int32_t line, std::wstring_view call) const {
    Throw(m_location, Raised(line, call));
}

void ApiOperation::Fail(int32_t line, std::wstring_view call, HRESULT result) const {
    const MException cause{MErrorCom(result)};
    ThrowWithCause(m_location, cause, Raised(line, call));
}

void ApiOperation::FailOfHandle(int32_t line, std::wstring_view call, HRESULT result,
                                ICalibrationHandle* handle) const {
    const MException cause{MErrorCom(result, handle, uuid_of<ICalibrationHandle>())};
    ThrowWithCause(m_location, cause, Raised(line, call));
}

void ApiOperation::Log(int32_t line, const MException& exception) const noexcept {
    // Without memory the log lacks an entry.
    AtBoundary([&] {
        m_location.Set(m_object, line);
        if (!exception.GetChain().empty()) Dismiss(m_location, *exception.GetChain().back());
        const std::string method = std::string(m_location.ClassName()) + "::" + m_location.MethodName();
        const std::wstring text = L"Error codes:\n" + ErrorCodesText(exception);
        ModuleLogger().Log({MLogSeverity::kError, m_location.ClassName(), line, method, text});
        return S_OK;
    });
}

}  // namespace hx
