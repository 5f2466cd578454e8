// How the records of the device catalogue are read: the entries, which bear a name, and the collections of
// them. A collection's table has one row, made by MembersOf, for the children that are its members.
//
// Included by the sources of these records. Any thread.
#pragma once

#include "core/errors/MErrorLocation.h"
#include "core/records/FieldsOf.h"
#include "core/records/ListType.h"

namespace hx {

// The children of an entry, up to the first that is missing; they are read straight into `entry`, whose
// `name` is the first row of its table. Raises "EmptyInternalName" at `location` for an empty name.
bool ReadEntry(const RecordType& type, void* entry, const std::wstring& name, MFilerTaggedPair& filer,
               MErrorLocation& location);

[[noreturn]] void ThrowNoMember(const void* collection, std::wstring_view category, MErrorLocation& location);

// The children of a collection instead of its old members. Raises "Read" at `location`, with the parameter
// "category", if there is not a single one. A newer version leaves the collection empty.
template <class R>
bool ReadCollection(R& collection, MFilerTaggedPair& filer, std::wstring_view category,
                    MErrorLocation& location) {
    collection.Members.clear();
    int64_t version = 0;
    if (!ReadVersion(filer, R::kType.version, version)) return false;
    if (!ReadFields(collection, collection, filer, version, ReadRule::kUntilFailure)) {
        ThrowNoMember(&collection, category, location);
    }
    return true;
}

namespace detail {

template <class T>
const ListType& TypeOfMembers(const std::vector<T>&) {
    return VectorType<T>::kType;
}
template <class T>
const ListType& TypeOfMembers(const std::map<std::wstring, T>&) {
    return MapType<T>::kType;
}

// A later member replaces an earlier one of the same name.
template <class T>
void AddMember(std::map<std::wstring, T>& members, T member) {
    std::wstring name = member.InternalName;
    members.insert_or_assign(std::move(name), std::move(member));
}
template <class T>
void AddMember(std::vector<T>& members, T member) {
    members.push_back(std::move(member));
}

template <class T>
const T& MemberIn(const T& entry) {
    return entry;
}
template <class T>
const T& MemberIn(const std::pair<const std::wstring, T>& entry) {
    return entry.second;
}

template <class R, class T>
struct MembersOps {
    static FieldRef At(void* record) {
        auto& members = static_cast<R*>(record)->Members;
        return ListRef{&members, &TypeOfMembers(members)};
    }
    static bool Read(const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
        auto& members = static_cast<R*>(record)->Members;
        for (;;) {
            T member;
            if (!member.ReadTagged(filer, field.child)) return !members.empty();
            AddMember(members, std::move(member));
        }
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        for (const auto& entry : static_cast<const R*>(record)->Members) {
            if (!MemberIn<T>(entry).WriteTagged(filer, field.child)) return false;
        }
        return true;
    }

    static constexpr FieldOps kOps{{}, 0, &At, &Read, &Write};
};

}  // namespace detail

// The members of collection R, each of class T in a child of this name.
template <class R, class T>
constexpr Field MembersOf(std::wstring_view child) {
    return {child, &detail::MembersOps<R, T>::kOps, {}, {}};
}

}  // namespace hx
