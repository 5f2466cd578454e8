// Replays the seeds and everything that the fuzzer once found: each must pass for ever.
#include <gtest/gtest.h>

#include <filesystem>

#include "fuzz/fuzz_target.h"
#include "platform/system/files.h"

namespace {

uint32_t ReplayFolder(const fuzz::Target& target, const std::filesystem::path& folder) {
    uint32_t replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().string());
        std::string bytes;
        EXPECT_FALSE(hx::ReadFile(entry.path(), bytes));
        target.run(fuzz::Input({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}));
        ++replayed;
    }
    return replayed;
}

TEST(FuzzReplay, EveryInputOfThePastPasses) {
    for (const fuzz::Target& target : fuzz::Targets()) {
        const auto inputs = std::filesystem::path(HX_SOURCE_DIR) / "fuzz" / "inputs" / target.name;
        SCOPED_TRACE(target.name);
        EXPECT_GT(ReplayFolder(target, inputs), 0u);
    }
}

}  // namespace
