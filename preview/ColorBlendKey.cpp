#include "preview/ColorBlendKey.h"

#include "platform/registry/registry.h"

namespace hx::preview {
namespace {

// As the catalog of the suite's keys has it.
constexpr wchar_t kPath[] = L"Software\\Orvel\\HXAPI4\\Configuration";
constexpr wchar_t kName[] = L"ColorBlend";

}  // namespace

bool IsColorBlendWanted() {
    RegistryValue value;
    const RegistryResult result = Registry()->QueryValue(RegistryRoot::kLocalMachine, kPath, kName, value);
    return result != RegistryResult::kDone || value != RegistryValue(0u);
}

}  // namespace hx::preview
