#include "bench/archives_boost.h"

#include <boost/archive/xml_iarchive.hpp>
#include <boost/archive/xml_oarchive.hpp>

#include "bench/plain_device.h"
#include "bench/plain_profiles.h"

namespace hx::bench {

template <class Root>
typename Root::Text WriteBoost(const Root& root) {
    return WriteArchive<boost::archive::xml_oarchive>(root);
}

template <class Root>
void ReadBoost(typename Root::Text text, Root& root) {
    ReadArchive<boost::archive::xml_iarchive>(std::move(text), root);
}

template std::string WriteBoost(const PlainProfiles<std::string>&);
template void ReadBoost(std::string, PlainProfiles<std::string>&);
template std::string WriteBoost(const PlainDeviceRead<std::string>&);
template void ReadBoost(std::string, PlainDeviceRead<std::string>&);
template std::string WriteBoost(const PlainDeviceWritten<std::string>&);

}  // namespace hx::bench
