// Makes the rows of a record's table:
//
//     using F = FieldsOf<MThing>;
//     constexpr Field kFields[] = {
//         F::Value<&MThing::Exposure_us>(L"Exposure", 1.0, "us"),
//         F::Value<&MThing::Gain, uint16_t>(L"Gain", 1).In(VersionSet::From(6)),
//         F::Record<&MThing::Filter>(L"FilterSettings"),
//     };
//
// Included by the sources of records. Any thread.
#pragma once

#include "core/filer/TaggedType.h"
#include "core/records/RecordFields.h"

namespace hx {

namespace detail {

template <class T>
struct MemberOf;
template <class T, class C>
struct MemberOf<T C::*> {
    using type = T;
};

template <class T>
constexpr uint8_t IntegerBits() {
    if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
        return sizeof(T) * 8;
    } else {
        return 0;
    }
}

// Of a value that travels as the type Stream.
template <class R, auto kMember, class Stream>
struct ValueOps {
    using Member = typename MemberOf<decltype(kMember)>::type;

    static FieldRef At(void* record) { return &(static_cast<R*>(record)->*kMember); }

    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        Member& value = static_cast<R*>(record)->*kMember;
        const Member& otherwise = static_cast<const R*>(fallback)->*kMember;
        if constexpr (std::is_same_v<Member, Stream>) {
            return filer.Read<Stream>(field.child, value, otherwise);
        } else {
            Stream stream{};
            const bool read = filer.Read<Stream>(field.child, stream, static_cast<Stream>(otherwise));
            value = static_cast<Member>(stream);
            return read;
        }
    }

    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return filer.Write<Stream>(field.child, static_cast<Stream>(static_cast<const R*>(record)->*kMember));
    }

    static constexpr FieldOps kOps{TaggedType<Stream>::kWord, IntegerBits<Stream>(), &At, &Read, &Write};
};

// A value under its former name: read into its field, which its present row lists and writes.
template <class R, auto kMember>
struct FormerOps {
    using Ops = ValueOps<R, kMember, typename MemberOf<decltype(kMember)>::type>;

    static constexpr FieldOps kOps{Ops::kOps.type, Ops::kOps.bits, nullptr, &Ops::Read, nullptr, {},
                                   &Ops::At};
};

template <class Stream>
struct RetiredOps {
    static bool Read(const Field& field, void*, const void*, MFilerTaggedPair& filer) {
        Stream dropped{};
        return filer.Read<Stream>(field.child, dropped, Stream{});
    }

    static constexpr FieldOps kOps{TaggedType<Stream>::kWord, IntegerBits<Stream>(), nullptr, &Read, nullptr};
};

template <class R, auto kMember>
struct RecordOps {
    using Member = typename MemberOf<decltype(kMember)>::type;

    static FieldRef At(void* record) {
        return RecordRef{&(static_cast<R*>(record)->*kMember), &Member::kType};
    }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        return ReadRecord(static_cast<R*>(record)->*kMember, filer, field.child,
                          static_cast<const R*>(fallback)->*kMember);
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return (static_cast<const R*>(record)->*kMember).WriteTagged(filer, field.child);
    }

    static constexpr FieldOps kOps{{}, 0, &At, &Read, &Write};
};

template <class R, class Owner, const RecordType& kElement>
struct ElementOps {
    static FieldRef At(void* record) {
        Owner* const owner = static_cast<R*>(record);
        return RecordRef{owner, &kElement};
    }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        Owner* const owner = static_cast<R*>(record);
        const Owner* const defaults = static_cast<const R*>(fallback);
        return kElement.read == nullptr ? ReadElement(kElement, owner, defaults, filer, field.child)
                                        : kElement.read(owner, filer, field.child, defaults);
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        const Owner* const owner = static_cast<const R*>(record);
        return kElement.write == nullptr ? WriteElement(kElement, owner, filer, field.child)
                                         : kElement.write(owner, filer, field.child);
    }

    static constexpr FieldOps kOps{{}, 0, &At, &Read, &Write};
};

template <class R, auto kMember>
struct FragmentOps {
    static FieldRef At(void* record) { return &(static_cast<R*>(record)->*kMember); }
    static bool Read(const Field& field, void* record, const void* fallback, MFilerTaggedPair& filer) {
        XmlFragment& fragment = static_cast<R*>(record)->*kMember;
        std::wstring text;
        const bool read = filer.ExtractGroup(field.child, text);
        fragment.text = read ? std::move(text) : (static_cast<const R*>(fallback)->*kMember).text;
        return read;
    }
    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        return filer.InsertDocument(field.child, (static_cast<const R*>(record)->*kMember).text);
    }

    static constexpr FieldOps kOps{L"elements", 0, &At, &Read, &Write};
};

}  // namespace detail

template <class R>
struct FieldsOf {
    // A value, which travels as Stream; its own type if that is left out.
    template <auto kMember, class Stream = typename detail::MemberOf<decltype(kMember)>::type>
    static constexpr Field Value(std::wstring_view child, FieldDefault fallback, std::string_view unit = {}) {
        return {child, &detail::ValueOps<R, kMember, Stream>::kOps, fallback, unit};
    }
    // The name that a value had in old versions; its present row tells the rest.
    template <auto kMember>
    static constexpr Field Former(std::wstring_view child, VersionSet versions, std::string_view now) {
        return {child, &detail::FormerOps<R, kMember>::kOps, {}, now, versions};
    }
    // A value of old versions: read, so that what follows it is found, and dropped.
    template <class Stream>
    static constexpr Field Retired(std::wstring_view child, VersionSet versions) {
        return {child, &detail::RetiredOps<Stream>::kOps, {}, {}, versions};
    }
    // A record inside the record, held by value.
    template <auto kMember>
    static constexpr Field Record(std::wstring_view child) {
        return {child, &detail::RecordOps<R, kMember>::kOps, {}, {}};
    }
    // An element without a class of its own: its children are fields of this record, and its table is made by
    // FieldsOf<Owner>: this class, or the base that the fields are of.
    template <const RecordType& kElement, class Owner = R>
    static constexpr Field Element(std::wstring_view child) {
        return {child, &detail::ElementOps<R, Owner, kElement>::kOps, {}, {}};
    }
    // An XmlFragment.
    template <auto kMember>
    static constexpr Field Fragment(std::wstring_view child) {
        return {child, &detail::FragmentOps<R, kMember>::kOps, {}, {}};
    }
};

}  // namespace hx
