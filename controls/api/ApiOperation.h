// How a page, its session and the presets manager call the scanner API: a call that fails is raised under the
// name of the operation that made it, "Class.Method:Call", behind a record of the result code and whatever
// the API itself had to say. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/errors/MErrorLocation.h"
#include "hxapi/ICalibrationHandle.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"

namespace hx {

class ApiOperation {
public:
    // The operation of `object` that `location` names. Lines are numbers that each raise keeps.
    ApiOperation(MErrorLocation& location, const void* object) : m_location(location), m_object(object) {}

    // Throws an MException: the error alone; or behind it as its cause, the result code.
    [[noreturn]] void Fail(int32_t line, std::wstring_view call) const;
    [[noreturn]] void Fail(int32_t line, std::wstring_view call, HRESULT result) const;

    void Check(int32_t line, std::wstring_view call, HRESULT result) const {
        if (FAILED(result)) Fail(line, call, result);
    }

    // Calls a calibration handle, whose error information comes along if it fails. Without a handle the call
    // fails with E_POINTER.
    template <class... Parameters, class... Arguments>
    void Call(int32_t line, std::wstring_view call, const ComPtr<ICalibrationHandle>& handle,
              HRESULT (STDMETHODCALLTYPE ICalibrationHandle::*method)(Parameters...),
              Arguments... arguments) const {
        // An older failure's information must not pass for this one's.
        SetErrorInfo(0, nullptr);
        // The call may dispatch messages in which the page drops its own reference.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const ComPtr<ICalibrationHandle> held = handle;
        const HRESULT result = held ? (held.get()->*method)(arguments...) : E_POINTER;
        if (FAILED(result)) FailOfHandle(line, call, result, held.get());
    }

    // The module's log is told of an exception that goes no further. Never throws.
    void Log(int32_t line, const MException& exception) const noexcept;

private:
    [[noreturn]] void FailOfHandle(int32_t line, std::wstring_view call, HRESULT result,
                                   ICalibrationHandle* handle) const;
    MError Raised(int32_t line, std::wstring_view call) const;

    MErrorLocation& m_location;
    const void* const m_object;
};

}  // namespace hx
