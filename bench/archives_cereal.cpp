#include <cereal/archives/xml.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/vector.hpp>
#include <concepts>
#include <sstream>
#include <utility>

#include "bench/archives.h"
#include "bench/plain_device.h"
#include "bench/plain_profiles.h"

namespace hx::bench {
namespace {

template <class Archive>
struct CerealFiler {
    Archive& archive;

    template <class T>
    void Value(Tag tag, T& value) {
        archive(cereal::make_nvp(tag.narrow.data(), value));
    }
};

constexpr char kRootName[] = "Settings";

}  // namespace

template <class Archive, std::derived_from<PlainRecord> Record>
void serialize(Archive& archive, Record& record) {
    CerealFiler<Archive> filer{archive};
    Record::Exchange(filer, record);
}

// Without indentation and without types, which makes it write less than the tagged form.
template <class Root>
std::string WriteCereal(const Root& root) {
    std::ostringstream out;
    {
        cereal::XMLOutputArchive archive(out, cereal::XMLOutputArchive::Options::Default().indent(false));
        archive(cereal::make_nvp(kRootName, root));
    }
    return std::move(out).str();
}

template <class Root>
void ReadCereal(std::string text, Root& root) {
    std::istringstream in(std::move(text));
    cereal::XMLInputArchive archive(in);
    archive(cereal::make_nvp(kRootName, root));
}

template std::string WriteCereal(const PlainProfiles<std::string>&);
template void ReadCereal(std::string, PlainProfiles<std::string>&);
template std::string WriteCereal(const PlainDeviceRead<std::string>&);
template void ReadCereal(std::string, PlainDeviceRead<std::string>&);
template std::string WriteCereal(const PlainDeviceWritten<std::string>&);

}  // namespace hx::bench
