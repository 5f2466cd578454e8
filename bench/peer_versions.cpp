#include "bench/peer_versions.h"

#include <expat.h>
#include <libxml/xmlversion.h>
#include <tinyxml2.h>

#include <boost/version.hpp>
#include <cereal/version.hpp>
#include <pugixml.hpp>

namespace hx::bench {
namespace {

template <class... Numbers>
std::string Dotted(Numbers... numbers) {
    std::string text;
    (text.append(text.empty() ? "" : ".").append(std::to_string(numbers)), ...);
    return text;
}

}  // namespace

std::string PeerVersions() {
    return "pugixml " + Dotted(PUGIXML_VERSION / 1000, PUGIXML_VERSION / 10 % 100) +
           ", rapidxml and Serialization of Boost " +
           Dotted(BOOST_VERSION / 100'000, BOOST_VERSION / 100 % 1000) + ", tinyxml2 " +
           Dotted(TIXML2_MAJOR_VERSION, TIXML2_MINOR_VERSION, TIXML2_PATCH_VERSION) + ", expat " +
           Dotted(XML_MAJOR_VERSION, XML_MINOR_VERSION, XML_MICRO_VERSION) + ", libxml2 " +
           LIBXML_DOTTED_VERSION + ", cereal " +
           Dotted(CEREAL_VERSION_MAJOR, CEREAL_VERSION_MINOR, CEREAL_VERSION_PATCH);
}

}  // namespace hx::bench
