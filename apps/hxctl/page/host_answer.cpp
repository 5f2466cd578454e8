#include "apps/hxctl/page/host_answer.h"

#include "apps/hosting/HowToRegister.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/page/script_command.h"
#include "core/errors/MException.h"
#include "platform/system/utf8.h"

namespace hxctl {

void CheckAnswer(const char* operation, const hosting::Answer& answer) {
    if (answer.IsDone()) return;
    std::string reason = std::string(operation) + " answered " + NamedResult(answer.result) +
                         hosting::HowToRegister(answer.result);
    hx::MException chain;
    const bool is_chain = hx::ReadChainDocument(answer.text, chain);
    const std::wstring text = is_chain ? hx::ErrorCodesText(chain) : answer.text;
    if (!text.empty()) reason += ": " + hx::ToUtf8(text);
    throw Impossible(reason);
}

}  // namespace hxctl
