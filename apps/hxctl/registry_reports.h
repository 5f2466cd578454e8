// What the registry's stores have to tell while the tool runs, as long as no component library listens: on
// standard error at once, and in the log of the component library, whose configuration is in those stores.
#pragma once

namespace hxctl {

// From now on. Called once, before the registry is used.
void ListenForRegistryReports();

// Writes the reports that came since the last call to the log. Called where the registry may be used. If the
// log cannot be written they are lost there.
void LogRegistryReports();

}  // namespace hxctl
