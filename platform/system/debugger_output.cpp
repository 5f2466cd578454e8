#include "platform/system/debugger_output.h"

#include <atomic>
#include <cstdio>
#include <exception>

#include "platform/system/environment.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

std::atomic<DebuggerOutput> g_receiver{nullptr};

void WriteToStandardError(std::wstring_view text) {
    static const bool wanted = EnvironmentValue("HX_DEBUGGER_OUTPUT").has_value();
    if (!wanted) return;
    const std::string utf8 = ToUtf8(text);
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
}

}  // namespace

void WriteDebuggerOutput(std::wstring_view text) noexcept {
    if (const DebuggerOutput receiver = g_receiver.load()) return receiver(text);
    try {
        WriteToStandardError(text);
    } catch (const std::exception&) {
        // Without memory there is no output: nobody is to fail for it.
    }
}

DebuggerOutput SetDebuggerOutput(DebuggerOutput receiver) {
    return g_receiver.exchange(receiver);
}

}  // namespace hx
