// FOLDER save: saves lists by turns, for ever. FOLDER load: loads once, then waits. Says "!" when it begins
// and after each of these steps.
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "platform/registry/registry.h"
#include "tests/simulator/presets/preset_lists.h"

namespace {

bool Tell() {
    return write(STDOUT_FILENO, "!", 1) == 1;
}

}  // namespace

int main(int count, char** arguments) {
    using namespace hx::simulator;
    if (count != 3) return EXIT_FAILURE;
    hx::SetRegistry(hx::MakeMemoryRegistry());
    PresetStore store(arguments[1], kModel);
    std::wstring reason;
    if (!Tell()) return EXIT_FAILURE;
    if (std::string_view(arguments[2]) == "load") {
        PresetList list;
        PresetsOutcome outcome{};
        if (FAILED(store.Load(kKillOwner, list, outcome, reason)) || !Tell()) return EXIT_FAILURE;
        for (;;) pause();
    }
    for (size_t i = 0;; ++i) {
        if (FAILED(store.Save(kKillOwner, kKillLists[i % 2], reason)) || !Tell()) return EXIT_FAILURE;
    }
}
