#include "bench/write_cereal.h"

#include <cereal/archives/xml.hpp>
#include <cereal/types/string.hpp>
#include <sstream>

#include "bench/tagged_form.h"

namespace hx::bench {
namespace {

class CerealWriter {
public:
    explicit CerealWriter(cereal::XMLOutputArchive& archive) : m_archive(archive) {}

    void Begin(Tag tag) {
        m_archive.setNextName(tag.narrow.data());
        m_archive.startNode();
    }

    void End() { m_archive.finishNode(); }

    template <class T>
    void Value(Tag tag, const T& value) {
        m_archive(cereal::make_nvp(tag.narrow.data(), value));
    }

private:
    cereal::XMLOutputArchive& m_archive;
};

}  // namespace

// Without indentation and without types, which makes it write less than the others.
std::string WriteCereal(const Document<std::string>& document) {
    std::ostringstream out;
    {
        cereal::XMLOutputArchive archive(out, cereal::XMLOutputArchive::Options::Default().indent(false));
        CerealWriter writer(archive);
        WriteDocument(writer, document);
    }
    return std::move(out).str();
}

}  // namespace hx::bench
