#include <cstdio>
#include <cstdlib>

#include "fuzz/fuzz_target.h"

namespace fuzz {

uint8_t Input::Byte() {
    if (m_bytes.empty()) return 0;
    const uint8_t byte = m_bytes.front();
    m_bytes = m_bytes.subspan(1);
    return byte;
}

std::wstring Input::Text(size_t limit) {
    std::wstring text;
    while (!m_bytes.empty() && text.size() < limit) {
        uint32_t character = Byte();
        if (character == 0xFE) break;
        if (character == 0xFF) {
            character = 0;
            for (int i = 0; i < 4; ++i) character = character << 8 | Byte();
        }
        text += static_cast<wchar_t>(character);
    }
    return text;
}

std::span<const Target> Targets() {
    static constexpr Target kTargets[] = {
        {"xml_document", &XmlDocument},
        {"tagged_reader", &TaggedReader},
        {"tagged_optional_reader", &TaggedOptionalReader},
        {"resource_script", &ResourceScript},
        {"registration_script", &RegistrationScript},
        {"chain_document", &ChainDocument},
        {"registry_filers", &RegistryFilers},
        {"records", &Records},
        {"properties", &Properties},
        {"preset_file", &PresetFile},
    };
    return kTargets;
}

void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

}  // namespace fuzz
