// hxctl format: the document of the settings format.
#include "apps/hxctl/command.h"
#include "apps/hxctl/record_json.h"
#include "settings/inventory/FormatDocument.h"

namespace hxctl {

Outcome RunFormat(bool json) {
    std::string document = hx::FormatDocument();
    if (json) document = Json{{"document", document}}.dump() + "\n";
    return {kDone, std::move(document), {}};
}

}  // namespace hxctl
