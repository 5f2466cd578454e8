// Classes listed in text tables `*.classes` of one folder, UTF-8, one class a line, fields parted by tabs:
//     {CLSID}  ProgID  version-independent ProgID  threading model  library file name
// The two middle fields may be empty, '#' starts a comment line, a relative library lies beside the table.
// A malformed line is skipped: one bad installation must not hide the classes of the others.
// Read once, when made; answers on any thread.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/com/class_lookup.h"

namespace hx {

// Of two lines for one class the first wins, tables being read in the order of their names. A folder that is
// missing or unreadable lists no classes. Throws std::bad_alloc.
HX_PLATFORM_API std::shared_ptr<IClassLookup> ReadClassFiles(const std::filesystem::path& folder);

}  // namespace hx
