// Which classes there are and where their libraries lie. The loader asks it; tools list it.
// Implementations answer on any thread and may throw std::bad_alloc.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/com/guid.h"

namespace hx {

struct ClassEntry {
    CLSID clsid{};
    std::wstring prog_id;                      // with version; empty if it has none
    std::wstring version_independent_prog_id;  // empty if it has none
    std::wstring threading_model;              // empty if it does not say
    std::wstring library;                      // absolute path
    std::wstring description;                  // for people; empty if it has none
    bool is_registered = false;                // or only listed in a text table
};

class IClassLookup {
public:
    virtual ~IClassLookup() = default;

    virtual std::optional<ClassEntry> ByClsid(const CLSID& clsid) const = 0;
    // The entry's library alone: asked at every creation of an object, so it is worth a shorter way.
    virtual std::optional<std::wstring> LibraryOf(const CLSID& clsid) const {
        std::optional<ClassEntry> entry = ByClsid(clsid);
        return entry ? std::optional(std::move(entry->library)) : std::nullopt;
    }
    // Either form of the ProgID, in any case.
    virtual std::optional<CLSID> ByProgId(std::wstring_view prog_id) const = 0;
    virtual std::vector<ClassEntry> All() const = 0;
};

}  // namespace hx
