#include "bench/archives_boost.h"

#include <boost/archive/xml_wiarchive.hpp>
#include <boost/archive/xml_woarchive.hpp>

#include "bench/plain_device.h"
#include "bench/plain_profiles.h"

namespace hx::bench {

template <class Root>
typename Root::Text WriteBoost(const Root& root) {
    return WriteArchive<boost::archive::xml_woarchive>(root);
}

template <class Root>
void ReadBoost(typename Root::Text text, Root& root) {
    ReadArchive<boost::archive::xml_wiarchive>(std::move(text), root);
}

template std::wstring WriteBoost(const PlainProfiles<std::wstring>&);
template void ReadBoost(std::wstring, PlainProfiles<std::wstring>&);
template std::wstring WriteBoost(const PlainDeviceRead<std::wstring>&);
template void ReadBoost(std::wstring, PlainDeviceRead<std::wstring>&);
template std::wstring WriteBoost(const PlainDeviceWritten<std::wstring>&);

}  // namespace hx::bench
