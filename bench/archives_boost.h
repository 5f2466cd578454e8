// What the narrow and the wide archives of Boost.Serialization share.
#pragma once

#include <boost/archive/basic_archive.hpp>
#include <boost/serialization/nvp.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/tracking.hpp>
#include <boost/serialization/vector.hpp>
#include <concepts>
#include <sstream>
#include <utility>

#include "bench/archives.h"
#include "bench/plain_record.h"
#include "bench/tag.h"

// Neither class information nor object addresses are kept, so that as little as possible is written.
template <std::derived_from<hx::bench::PlainRecord> Record>
struct boost::serialization::implementation_level<Record> {
    using tag = mpl::integral_c_tag;
    using type = mpl::int_<object_serializable>;
    BOOST_STATIC_CONSTANT(int, value = object_serializable);
};
template <std::derived_from<hx::bench::PlainRecord> Record>
struct boost::serialization::tracking_level<Record> {
    using tag = mpl::integral_c_tag;
    using type = mpl::int_<track_never>;
    BOOST_STATIC_CONSTANT(int, value = track_never);
};

namespace hx::bench {

template <class Archive>
struct BoostFiler {
    Archive& archive;

    template <class T>
    void Value(Tag tag, T& value) {
        archive& boost::serialization::make_nvp(tag.narrow.data(), value);
    }
};

template <class Archive, std::derived_from<PlainRecord> Record>
void serialize(Archive& archive, Record& record, unsigned) {
    BoostFiler<Archive> filer{archive};
    Record::Exchange(filer, record);
}

inline constexpr char kBoostRoot[] = "Settings";
// The stream's own character conversion would only cost time: all is ASCII.
inline constexpr unsigned kBoostFlags = boost::archive::no_codecvt;

template <class Archive, class Root>
typename Root::Text WriteArchive(const Root& root) {
    std::basic_ostringstream<typename Root::Text::value_type> out;
    {
        Archive archive(out, kBoostFlags);
        archive << boost::serialization::make_nvp(kBoostRoot, root);
    }
    return std::move(out).str();
}

template <class Archive, class Root>
void ReadArchive(typename Root::Text text, Root& root) {
    std::basic_istringstream<typename Root::Text::value_type> in(std::move(text));
    Archive archive(in, kBoostFlags);
    archive >> boost::serialization::make_nvp(kBoostRoot, root);
}

}  // namespace hx::bench
