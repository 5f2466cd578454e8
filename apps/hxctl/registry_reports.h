// What the registry's stores have to tell that no component library has heard of, and so has not logged.
#pragma once

namespace hxctl {

// Tells it on standard error, and in the log of the component library, whose configuration is in those
// stores. Called when the registry has been used. If the log cannot be written it is lost there.
void TellRegistryReports();

}  // namespace hxctl
