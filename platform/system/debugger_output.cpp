#include "platform/system/debugger_output.h"

#include <atomic>
#include <cstdio>

#include "platform/system/utf8.h"

namespace hx {
namespace {

std::atomic<DebuggerOutput> g_receiver{nullptr};

}  // namespace

void WriteToStandardError(std::wstring_view text) {
    const std::string utf8 = ToUtf8(text);
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
}

void WriteDebuggerOutput(std::wstring_view text) noexcept {
    if (const DebuggerOutput receiver = g_receiver.load()) receiver(text);
}

DebuggerOutput SetDebuggerOutput(DebuggerOutput receiver) {
    return g_receiver.exchange(receiver);
}

}  // namespace hx
