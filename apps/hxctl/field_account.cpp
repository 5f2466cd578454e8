#include "apps/hxctl/field_account.h"

#include <algorithm>
#include <type_traits>

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/TaggedType.h"
#include "core/filer/TaggedXml.h"
#include "core/records/ListType.h"
#include "core/records/RecordFields.h"
#include "platform/system/utf8.h"
#include "settings/inventory/FieldShape.h"
#include "settings/inventory/RecordInventory.h"
#include "settings/properties/MLaserPlane.h"

namespace hxctl {
namespace {

// Whether the field has the value that the document tells.
bool Holds(hx::FieldRef field, std::wstring_view text) {
    return std::visit(
        [&](auto at) {
            if constexpr (std::is_pointer_v<decltype(at)>) {
                using Value = std::remove_pointer_t<decltype(at)>;
                if constexpr (!std::is_same_v<Value, hx::XmlFragment>) {
                    Value value{};
                    return hx::TaggedType<Value>::Parse(text, value) && value == *at;
                }
            }
            return true;
        },
        field);
}

// Of a longer list the rest is counted.
constexpr size_t kEntriesInFull = 100;

std::string Shortened(std::wstring_view text) {
    constexpr size_t kShown = 40;
    return text.size() <= kShown ? hx::ToUtf8(text) : hx::ToUtf8(text.substr(0, kShown)) + "...";
}

// What the document has of a field that is read and dropped.
Json Dropped(const DocumentElement& child) {
    Json field = {{"name", hx::ToUtf8(child.name)}};
    if (child.type.empty()) {
        field["fields"] = Json::array();
        for (const DocumentElement& inner : child.children) field["fields"].push_back(Dropped(inner));
    } else {
        field["value"] = hx::ToUtf8(child.text);
    }
    return field;
}

std::string Path(const std::string& owner, const std::string& child) {
    return owner.empty() ? child : owner + "/" + child;
}

// Whether a field that is no part of the document's version is told by another row of its table.
bool HasOtherRow(const hx::Field& field, const hx::RecordType& type, void* record, int64_t version) {
    return std::ranges::any_of(type.fields, [&](const hx::Field& other) {
        const bool is_told = &other < &field || other.versions.Contains(version);
        return &other != &field && is_told && hx::IsSameField(field, other, record);
    });
}

// The entries of a list of records lie in its element, or stand in the owner's one after the other.
std::vector<const DocumentElement*> EntriesAt(hx::FieldRef at, const DocumentElement* child,
                                              const DocumentElement* owner) {
    std::vector<const DocumentElement*> entries;
    const auto* const list = std::get_if<hx::ListRef>(&at);
    if (list == nullptr || list->type->entries == nullptr || child == nullptr) return entries;
    const std::span<const hx::Field> rows = list->type->entries->fields;
    const bool is_entry = std::ranges::any_of(
        rows, [&](const hx::Field& row) { return child->Find(hx::ElementOf(row)) != nullptr; });
    for (const DocumentElement& element : is_entry ? owner->children : child->children) {
        if (element.type.empty() && (!is_entry || element.name == child->name)) entries.push_back(&element);
    }
    return entries;
}

}  // namespace

std::optional<int64_t> VersionOf(const hx::RecordType& type, const DocumentElement& element) {
    const DocumentElement* const child = element.Find(hx::kVersionChild);
    if (child == nullptr || child->type != hx::WordOf(type.version)) return {};
    uint32_t number = 0;
    int32_t signed_number = 0;
    if (type.version.word == hx::RecordVersion::kUint) {
        if (hx::TaggedType<uint32_t>::Parse(child->text, number)) return number;
    } else if (hx::TaggedType<int32_t>::Parse(child->text, signed_number)) {
        return signed_number;
    }
    return {};
}

std::string BadVersion(const hx::RecordType& type, const std::optional<int64_t>& version) {
    if (type.version.word == hx::RecordVersion::kNone) return {};
    const bool may_lack_it = &type == &hx::MLaserPlane::kType;
    if (!version && may_lack_it) return {};
    if (!version) return "no \"Version\" of type " + hx::ToUtf8(hx::WordOf(type.version));
    if (*version <= type.version.current || type.reads_newer) return {};
    return "version " + std::to_string(*version) + " is newer than " + std::to_string(type.version.current);
}

Json FieldTeller::FieldsOf(const hx::RecordType& type, void* record, const DocumentElement* element,
                           const std::string& path) {
    const auto version =
        element == nullptr ? std::optional<int64_t>(type.version.current) : VersionOf(type, *element);
    const Place place{type, record, element, version.value_or(0)};
    const Counted around = m_counted;
    // The planes of a list count for nothing; one by itself fails with a part of a newer version.
    if (&type == &hx::MLaserPlane::kType) m_counted = path.empty() ? Counted::kVersions : Counted::kNothing;
    if (element != nullptr && !path.empty()) TellBadVersion(type, *element, path);
    Json fields = Json::array();
    for (const hx::Field& field : type.fields) {
        const bool is_part = field.versions.Contains(place.version);
        if (field.ops->at != nullptr && !is_part && HasOtherRow(field, type, record, place.version)) continue;
        Json entry = Tell(field, place, path);
        if (!entry.is_null()) fields.push_back(std::move(entry));
    }
    if (element != nullptr) CollectUnknown(place, path);
    m_counted = around;
    return fields;
}

void FieldTeller::TellBadVersion(const hx::RecordType& type, const DocumentElement& element,
                                 const std::string& path) {
    // An element without a class of its own may have a reader of its own, which takes any version.
    if (type.make == nullptr && type.read != nullptr) return;
    const auto version = VersionOf(type, element);
    const std::string bad = BadVersion(type, version);
    if (bad.empty() || m_counted == Counted::kNothing) return;
    if (!version && m_counted == Counted::kVersions) return;
    if (missing.empty() && bad_version.empty()) bad_version = path + ": " + bad;
    m_counted = Counted::kNothing;
}

// Asks the row itself what it makes of an element without it: some depend on what was read before them.
bool FieldTeller::IsRequired(const hx::Field& field, const Place& place) const {
    const bool is_due = field.ops->read != nullptr && field.versions.Contains(place.version);
    if (field.optional || !is_due) return false;
    hx::MInFilerTaggedXml reader(L"<MFilerTaggedXml/>", hx::kTaggedXmlRoot);
    hx::MFilerTaggedPair filer(reader);
    try {
        return !field.Read(place.record, place.record, filer);
    } catch (const hx::MException&) {
        return true;
    }
}

void FieldTeller::Miss(std::string path) {
    if (m_counted == Counted::kAll && bad_version.empty()) missing.push_back(std::move(path));
}

Json FieldTeller::Tell(const hx::Field& field, const Place& place, const std::string& path) {
    const DocumentElement* const child =
        place.element == nullptr ? nullptr : place.element->Find(hx::ElementOf(field));
    const std::string name = hx::ToUtf8(field.child);
    if (field.ops->at == nullptr) {
        if (child != nullptr && field.ops->former == nullptr) {
            Json entry = Dropped(*child);
            entry["note"] = "no longer kept";
            return entry;
        }
        if (place.element != nullptr && child == nullptr && IsRequired(field, place)) Miss(Path(path, name));
        return {};
    }
    Json entry = {{"name", name}};
    const hx::FieldRef at = field.ops->at(place.record);
    const Counted around = m_counted;
    if (field.optional || !field.versions.Contains(place.version)) m_counted = Counted::kNothing;
    // The element of a list may be a record of which only the list is kept.
    const hx::InventoryRow* const kept = hx::FindRecordClass(field.ops->type);
    const bool is_list = std::holds_alternative<hx::ListRef>(at) && kept != nullptr;
    if (is_list && child != nullptr && kept->type != hx::ClassOf(field, place.record)) {
        TellBadVersion(*kept->type, *child, Path(path, name));
    }
    TellContent(entry, at, child, EntriesAt(at, child, place.element), Path(path, name));
    m_counted = around;
    if (!field.unit.empty()) entry["unit"] = field.unit;
    if (place.element != nullptr) TellPresence(entry, field, place, child, Path(path, name));
    return entry;
}

// What the document has under the name that its version gives the field.
const DocumentElement* FieldTeller::FormerChild(const hx::Field& field, const Place& place) {
    for (const hx::Field& row : place.type.fields) {
        if (!row.versions.Contains(place.version) || !hx::IsFormerName(row, field, place.record)) continue;
        const DocumentElement* const child = place.element->Find(hx::ElementOf(row));
        if (child != nullptr && child->type == row.ops->type) return child;
    }
    return nullptr;
}

void FieldTeller::TellPresence(Json& entry, const hx::Field& field, const Place& place,
                               const DocumentElement* child, const std::string& path) {
    const std::wstring_view word = hx::WordOf(field, place.record);
    const bool is_part = field.versions.Contains(place.version);
    if (const DocumentElement* const former = FormerChild(field, place)) {
        entry["inDocument"] = true;
        entry["note"] = "in the document under its former name";
        return;
    }
    const bool has_type = child != nullptr && child->type == word;
    const bool holds = child != nullptr && !child->type.empty() && !word.empty() &&
                       Holds(field.ops->at(place.record), child->text);
    // A few values are read from other types, too.
    const bool has_flag = field.flag >= 0 && place.type.is_valid != nullptr;
    const bool in_document = has_flag ? place.type.is_valid(place.record, static_cast<uint32_t>(field.flag))
                                      : is_part && (has_type || holds);
    entry["inDocument"] = in_document;
    if (in_document) {
        if (has_type && !word.empty() && !holds) {
            entry["note"] = "the document has " + Shortened(child->text);
        }
        return;
    }
    if (!is_part) {
        entry["note"] = "not part of version " + std::to_string(place.version);
        return;
    }
    if (!has_type && IsRequired(field, place)) Miss(path);
    if (child == nullptr) {
        entry["note"] = "not in the document";
    } else if (has_type) {
        entry["note"] = "in the document, but not read: " + Shortened(child->text);
    } else {
        entry["note"] = "in the document as " + (child->type.empty() ? "a group" : hx::ToUtf8(child->type)) +
                        ", not " + (word.empty() ? "a group" : hx::ToUtf8(word));
    }
}

void FieldTeller::TellContent(Json& entry, hx::FieldRef at, const DocumentElement* child,
                              const std::vector<const DocumentElement*>& entries, const std::string& path) {
    if (const auto* const inner = std::get_if<hx::RecordRef>(&at)) {
        if (inner->type->make != nullptr) entry["class"] = hx::ToUtf8(inner->type->name);
        entry["fields"] = FieldsOf(*inner->type, inner->record, child, path);
    } else if (const auto* const list = std::get_if<hx::ListRef>(&at); list && list->type->entries) {
        TellEntries(entry, *list, entries, path);
    } else if (list != nullptr) {
        size_t count = 0;
        list->type->each(list->list, [&](std::wstring_view, hx::FieldRef) { ++count; });
        entry["value"] = EntriesOf(*list, kEntriesInFull);
        if (count > kEntriesInFull) entry["count"] = count;
    } else {
        entry["value"] = JsonOf(at);
    }
}

void FieldTeller::TellEntries(Json& field, hx::ListRef list,
                              const std::vector<const DocumentElement*>& elements, const std::string& path) {
    size_t count = 0;
    bool has_keys = false;
    list.type->each(list.list, [&](std::wstring_view key, hx::FieldRef) {
        ++count;
        has_keys |= !key.empty();
    });
    // With a key, an entry may have come from several elements, or from one at another place.
    const bool is_told = !has_keys && count == elements.size();
    Json entries = Json::array();
    list.type->each(list.list, [&](std::wstring_view key, hx::FieldRef at) {
        const size_t number = entries.size();
        if (number == kEntriesInFull) return;
        Json entry = Json::object();
        if (!key.empty()) entry["name"] = hx::ToUtf8(key);
        TellContent(entry, at, is_told ? elements[number] : nullptr, {}, Path(path, std::to_string(number)));
        entries.push_back(std::move(entry));
    });
    field["count"] = count;
    field["entries"] = std::move(entries);
}

void FieldTeller::CollectUnknown(const Place& place, const std::string& path) {
    const auto is_known = [&](const DocumentElement& child) {
        if (child.name == hx::kVersionChild && place.type.version.word != hx::RecordVersion::kNone)
            return true;
        return std::ranges::any_of(place.type.fields, [&](const hx::Field& field) {
            return hx::ElementOf(field) == child.name || field.ops->companion == child.name;
        });
    };
    for (const DocumentElement& child : place.element->children) {
        if (!is_known(child)) unknown.push_back(Path(path, hx::ToUtf8(child.name)));
    }
}

}  // namespace hxctl
