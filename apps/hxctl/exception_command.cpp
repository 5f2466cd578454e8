// hxctl exception: what a chain document, as components leave it in their error information, says.
#include <nlohmann/json.hpp>

#include "apps/hxctl/command.h"
#include "core/errors/MException.h"
#include "platform/system/utf8.h"

namespace hxctl {

Outcome RunException(const std::string& file, bool json) {
    std::string reason;
    const auto text = ReadTextFile(file, reason);
    if (!text) return Refused(reason);
    hx::MException exception;
    if (!hx::ReadChainDocument(*text, exception))
        return Refused(file + ": no document of an exception chain");
    const std::string codes = hx::ToUtf8(hx::ErrorCodesText(exception));
    return {kDone, (json ? nlohmann::json{{"codes", codes}}.dump() : codes) + "\n", {}};
}

}  // namespace hxctl
