#include "apps/hxctl/record_json.h"

#include <cmath>

#include "core/records/ListType.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

Json ListOf(hx::ListRef list) {
    // Records tell their keys themselves.
    const bool has_keys = list.type->renew == nullptr && list.type->entries == nullptr;
    Json entries = has_keys ? Json::object() : Json::array();
    list.type->each(list.list, [&](std::wstring_view key, hx::FieldRef entry) {
        if (has_keys) {
            entries[hx::ToUtf8(key)] = JsonOf(entry);
        } else {
            entries.push_back(JsonOf(entry));
        }
    });
    return entries;
}

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
    Json operator()(hx::ListRef list) const { return ListOf(list); }
};

// An element without a class of its own holds fields of the record itself.
bool IsOwners(hx::FieldRef field) {
    const auto* const record = std::get_if<hx::RecordRef>(&field);
    return record != nullptr && record->type->make == nullptr;
}

}  // namespace

Json JsonOf(hx::FieldRef field) {
    return std::visit(ToJson(), field);
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

Json ValidFieldsOf(const hx::RecordType& type, const void* record) {
    Json valid = Json::array();
    if (type.is_valid == nullptr) return valid;
    for (const hx::Field& field : type.fields) {
        if (field.flag >= 0 && type.is_valid(record, static_cast<uint32_t>(field.flag))) {
            valid.push_back(hx::ToUtf8(field.child));
        }
    }
    return valid;
}

}  // namespace hxctl
