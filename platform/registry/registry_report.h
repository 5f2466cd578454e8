// What the stores have to tell (RegistryReport), kept until someone listens. Any thread.
#pragma once

#include "platform/registry/registry.h"

namespace hx {

// Keeps the report; DeliverRegistryReports tells it.
void AddRegistryReport(RegistryReport report);

// Tells the sink, if there is one, all reports that are kept. Not to be called with a lock held that is taken
// by whoever uses the registry: the sink may wait for such a caller.
void DeliverRegistryReports();

}  // namespace hx
