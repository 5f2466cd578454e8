#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kStreamFamily[] = {
    "Streamable",   "StreamableVector", "TStreamable",    "InputStream",     "OutputStream",
    "TInputStream", "TOutputStream",    "XMLInputStream", "XMLOutputStream", "XMLStreamBase",
};

}  // namespace

StreamedClasses::StreamedClasses(std::span<const char* const> names)
    : m_classes(names), m_family(kStreamFamily) {}

}  // namespace hx
