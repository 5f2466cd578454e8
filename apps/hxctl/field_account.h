// The fields of a record as its table tells them, beside what the document has.
#pragma once

#include <cstdint>
#include <optional>

#include "apps/hxctl/document_element.h"
#include "apps/hxctl/record_json.h"

namespace hxctl {

// Of the record in that element; none if it is not there, or of another type.
std::optional<int64_t> VersionOf(const hx::RecordType& type, const DocumentElement& element);
// What is wrong with a version; empty if it can be read.
std::string BadVersion(const hx::RecordType& type, const std::optional<int64_t>& version);

// For one record, with those inside it. See record_account.h for what comes out.
class FieldTeller {
public:
    // Null for a record of which it is not known where the document has it.
    Json FieldsOf(const hx::RecordType& type, void* record, const DocumentElement* element,
                  const std::string& path);

    // What keeps the record from being read, in the order of its table. Where a version inside it is bad,
    // nothing behind that is missing.
    std::vector<std::string> missing;
    std::string bad_version;  // if nothing is missing in front of it
    std::vector<std::string> unknown;

private:
    // Of the row in its table, beside the document's element of that name, if there is one.
    struct Place {
        const hx::RecordType& type;
        void* record;
        const DocumentElement* element;
        int64_t version;
    };
    Json Tell(const hx::Field& field, const Place& place, const std::string& path);
    void TellBadVersion(const hx::RecordType& type, const DocumentElement& element, const std::string& path);
    bool IsRequired(const hx::Field& field, const Place& place) const;
    void Miss(std::string path);
    static const DocumentElement* FormerChild(const hx::Field& field, const Place& place);
    void TellPresence(Json& entry, const hx::Field& field, const Place& place, const DocumentElement* child,
                      const std::string& path);
    // `entries`: where the document has those of a list.
    void TellContent(Json& entry, hx::FieldRef at, const DocumentElement* child,
                     const std::vector<const DocumentElement*>& entries, const std::string& path);
    void TellEntries(Json& field, hx::ListRef list, const std::vector<const DocumentElement*>& elements,
                     const std::string& path);
    void CollectUnknown(const Place& place, const std::string& path);

    // What counts where it is missing or bad, as long as what is around it does.
    enum class Counted { kAll, kVersions, kNothing };
    Counted m_counted = Counted::kAll;
};

}  // namespace hxctl
