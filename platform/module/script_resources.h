// The readers of one resource each, behind its id and type. For ReadResourceScript; errors are ScriptErrors.
#pragma once

#include "platform/module/dialog_template.h"
#include "platform/module/resources.h"
#include "platform/module/script_parser.h"

namespace hx {

DialogTemplate ReadDialog(ScriptParser& parser);
MenuTemplate ReadMenu(ScriptParser& parser);
VersionStrings ReadVersion(ScriptParser& parser);

}  // namespace hx
