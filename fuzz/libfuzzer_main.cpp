// libFuzzer's entry into the target that this program was built for.
#include <algorithm>

#include "fuzz/fuzz_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const fuzz::Target& target =
        *std::ranges::find(fuzz::Targets(), HX_FUZZ_TARGET, &fuzz::Target::name);
    target.run(fuzz::Input({data, size}));
    return 0;
}
