#include "settings/inventory/FieldShape.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "core/filer/TaggedType.h"
#include "core/records/ListType.h"
#include "settings/inventory/RecordInventory.h"

namespace hx {
namespace {

constexpr std::wstring_view kWords[] = {
    TaggedType<std::wstring>::kWord, TaggedType<char>::kWord,    TaggedType<double>::kWord,
    TaggedType<bool>::kWord,         TaggedType<uint8_t>::kWord, TaggedType<uint32_t>::kWord,
    TaggedType<int32_t>::kWord,
};

bool IsGroup(FieldRef field) {
    return std::holds_alternative<RecordRef>(field) || std::holds_alternative<ListRef>(field) ||
           std::holds_alternative<XmlFragment*>(field);
}

struct Address {
    const void* operator()(RecordRef record) const { return record.record; }
    const void* operator()(ListRef list) const { return list.list; }
    const void* operator()(const void* value) const { return value; }
};

const void* AddressOf(FieldRef field) {
    return std::visit(Address(), field);
}

}  // namespace

std::wstring_view ElementOf(const Field& field) {
    return field.child.substr(0, field.child.find(L' '));
}

std::wstring_view WordOf(const Field& field, void* record) {
    if (field.ops->at != nullptr && IsGroup(field.ops->at(record))) return {};
    return std::ranges::find(kWords, field.ops->type) == std::end(kWords) ? std::wstring_view()
                                                                          : field.ops->type;
}

std::wstring_view WordOf(const RecordVersion& version) {
    switch (version.word) {
        case RecordVersion::kInt:
            return TaggedType<int32_t>::kWord;
        case RecordVersion::kUint:
            return TaggedType<uint32_t>::kWord;
        case RecordVersion::kNone:
            break;
    }
    return {};
}

bool IsSameField(const Field& one, const Field& other, void* record) {
    return one.ops->at != nullptr && other.ops->at != nullptr &&
           AddressOf(one.ops->at(record)) == AddressOf(other.ops->at(record));
}

bool IsFormerName(const Field& former, const Field& row, void* record) {
    return former.ops->former != nullptr && row.ops->at != nullptr &&
           AddressOf(former.ops->former(record)) == AddressOf(row.ops->at(record));
}

const RecordType* ClassOf(const Field& field, void* record) {
    if (field.ops->at != nullptr) {
        const FieldRef at = field.ops->at(record);
        if (const auto* const inner = std::get_if<RecordRef>(&at)) return inner->type;
        if (const auto* const list = std::get_if<ListRef>(&at)) return list->type->entries;
    }
    const InventoryRow* const row = FindRecordClass(field.ops->type);
    return row == nullptr ? nullptr : row->type;
}

}  // namespace hx
