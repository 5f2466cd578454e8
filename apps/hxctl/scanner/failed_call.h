// A call of the scanner API that failed, with what the API has to say about it.
#pragma once

#include <stdexcept>
#include <string>

#include "core/errors/MErrorCom.h"
#include "core/errors/MException.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"

namespace hxctl {

struct FailedCall : std::runtime_error {
    using std::runtime_error::runtime_error;
};
// What the command line asks for does not exist.
struct WrongUsage : FailedCall {
    using FailedCall::FailedCall;
};

// What the operator reads of an exception.
std::string MessageOf(const hx::MException& exception);

// Throws a FailedCall if `result` is a failure; `detail` is the API's, or null.
void CheckCall(const char* operation, HRESULT result, IErrorInfo* detail = nullptr);
// With the error information that a component left.
[[noreturn]] void FailCall(const char* operation, const hx::MErrorCom& error);
// The same for an object that leaves error information for the interface `iid`.
void CheckCall(const char* operation, HRESULT result, IUnknown& object, REFIID iid);

template <class I>
void CheckCall(const char* operation, HRESULT result, const hx::ComPtr<I>& object) {
    CheckCall(operation, result, *object, hx::uuid_of<I>());
}

}  // namespace hxctl
