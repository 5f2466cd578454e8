#include "apps/hxctl/record_json.h"

#include <cmath>

#include "core/records/ListType.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

struct ToJson {
    Json operator()(const std::wstring* text) const { return hx::ToUtf8(*text); }
    Json operator()(const hx::XmlFragment* fragment) const { return hx::ToUtf8(fragment->text); }
    Json operator()(const double* number) const {
        if (std::isnan(*number)) return "nan";
        if (std::isinf(*number)) return *number < 0 ? "-inf" : "inf";
        return *number;
    }
    template <class T>
    Json operator()(const T* value) const {
        return *value;
    }
    Json operator()(hx::RecordRef record) const { return FieldsOf(*record.type, record.record); }
    Json operator()(hx::ListRef list) const { return EntriesOf(list); }
};

// An element without a class of its own holds fields of the record itself.
bool IsOwners(hx::FieldRef field) {
    const auto* const record = std::get_if<hx::RecordRef>(&field);
    return record != nullptr && record->type->make == nullptr;
}

void AddValid(const hx::RecordType& type, void* record, const std::string& path, Json& valid);

// Of the records inside a field, each with the path that it has among the fields.
void AddValidInside(hx::FieldRef field, const std::string& path, Json& valid) {
    if (const auto* const inner = std::get_if<hx::RecordRef>(&field)) {
        AddValid(*inner->type, inner->record, path, valid);
    } else if (const auto* const list = std::get_if<hx::ListRef>(&field); list && list->type->entries) {
        size_t number = 0;
        list->type->each(list->list, [&](std::wstring_view, hx::FieldRef entry) {
            AddValidInside(entry, path + std::to_string(number++) + "/", valid);
        });
    }
}

void AddValid(const hx::RecordType& type, void* record, const std::string& path, Json& valid) {
    for (const hx::Field& field : type.fields) {
        const std::string name = path + hx::ToUtf8(field.child);
        if (field.flag >= 0 && type.is_valid != nullptr &&
            type.is_valid(record, static_cast<uint32_t>(field.flag))) {
            valid.push_back(name);
        }
        if (field.ops->at == nullptr) continue;
        const hx::FieldRef at = field.ops->at(record);
        AddValidInside(at, IsOwners(at) ? path : name + "/", valid);
    }
}

}  // namespace

Json JsonOf(hx::FieldRef field) {
    return std::visit(ToJson(), field);
}

Json EntriesOf(hx::ListRef list, size_t most) {
    // Records tell their keys themselves.
    const bool has_keys = list.type->renew == nullptr && list.type->entries == nullptr;
    Json entries = has_keys ? Json::object() : Json::array();
    list.type->each(list.list, [&](std::wstring_view key, hx::FieldRef entry) {
        if (entries.size() == most) return;
        if (has_keys) {
            // No key comes twice, and to look each up takes long in a long list.
            entries.get_ref<Json::object_t&>().emplace_back(hx::ToUtf8(key), JsonOf(entry));
        } else {
            entries.push_back(JsonOf(entry));
        }
    });
    return entries;
}

Json FieldsOf(const hx::RecordType& type, void* record) {
    Json fields = Json::object();
    if (type.version_at != nullptr) fields["Version"] = JsonOf(type.version_at(record));
    for (const hx::Field& field : type.fields) {
        if (field.ops->at == nullptr) continue;
        const hx::FieldRef at = field.ops->at(record);
        if (IsOwners(at)) {
            fields.update(JsonOf(at));
        } else {
            fields[hx::ToUtf8(field.child)] = JsonOf(at);
        }
    }
    return fields;
}

Json ValidFieldsOf(const hx::RecordType& type, void* record) {
    Json valid = Json::array();
    AddValid(type, record, {}, valid);
    return valid;
}

}  // namespace hxctl
