// Whatever an operator, a host, a cable and a failing scanner do to all pages at once, in whatever order:
// what may never be of what can be seen from outside. HX_SEED and HX_STEPS choose another and a longer run;
// HX_TRACE tells each step before it is done.
#include <iostream>
#include <random>

#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/sleep.h"
#include "tests/controls/hosted/monkey.h"
#include "tests/memory_registry.h"

namespace {

using namespace hosted;

#ifdef __SANITIZE_ADDRESS__
constexpr uint64_t kUsualSteps = 6000;
#else
constexpr uint64_t kUsualSteps = 12000;
#endif
constexpr size_t kStepsOfARun = 100;

class PageMonkey : public WithMemoryRegistry {
protected:
    void SetUp() override {
        WithMemoryRegistry::SetUp();
        for (const uint32_t key : {78, 79, 88}) {
            EXPECT_TRUE(Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Set(true));
        }
        hx::SetSleeper([](uint32_t) {});
        ui::SetRenderer(m_renderer);
    }
    void TearDown() override {
        ui::SetRenderer(nullptr);
        hx::SetSleeper(nullptr);
        WithMemoryRegistry::TearDown();
    }
    std::string Run(uint32_t choice, const Steps& steps, bool trace = false) {
        std::string wrong = Monkey(m_renderer, choice).Run(steps, trace);
        // An API that still listens for a page has gone as well.
        return wrong.empty() && !IsNothingLeft() ? "something of the pages is left" : wrong;
    }
    static std::string What(const std::string& wrong) { return wrong.substr(0, wrong.find(" after ")); }
    // As few of the steps as still go wrong in the same way.
    Steps Shrunk(uint32_t choice, Steps steps, const std::string& wrong) {
        for (size_t length = steps.size() / 2 + 1; length > 0; length /= 2) {
            for (size_t at = 0; at < steps.size();) {
                Steps fewer = steps;
                const auto from = fewer.begin() + static_cast<ptrdiff_t>(at);
                fewer.erase(from,
                            fewer.begin() + static_cast<ptrdiff_t>(std::min(at + length, steps.size())));
                if (What(Run(choice, fewer)) != What(wrong)) {
                    at += length;
                } else {
                    steps = std::move(fewer);
                }
            }
        }
        return steps;
    }

    const std::shared_ptr<ui::HeadlessRenderer> m_renderer = ui::HeadlessRenderer::Make();
};

TEST_F(PageMonkey, FindsNothingThatMayNeverBe) {
    const uint64_t seed = FromEnvironment("HX_SEED", 1);
    const uint64_t runs = FromEnvironment("HX_STEPS", kUsualSteps) / kStepsOfARun;
    const bool trace = FromEnvironment("HX_TRACE", 0) != 0;
    std::vector<size_t> weighted;
    for (size_t i = 0; i < Monkey::Actions().size(); ++i) {
        weighted.insert(weighted.end(), Monkey::Actions()[i].weight, i);
    }
    for (uint64_t run = 0; run < runs; ++run) {
        std::mt19937 random(static_cast<uint32_t>(seed + run));
        const auto choice = static_cast<uint32_t>(random());
        Steps steps(kStepsOfARun);
        for (Step& step : steps) {
            step.action = weighted[random() % weighted.size()];
            step.place = static_cast<uint32_t>(random()) >> 8;
            for (uint32_t& number : step.numbers) number = static_cast<uint32_t>(random()) >> 8;
        }
        if (trace) std::cerr << "HX_SEED=" << seed + run << std::endl;
        const std::string wrong = Run(choice, steps, trace);
        if (wrong.empty()) continue;
        std::string text = "HX_SEED=" + std::to_string(seed + run) + ": " + wrong + "\n";
        const Steps shrunk = Shrunk(choice, steps, wrong);
        for (const Step& step : shrunk) text += "    " + Monkey::Text(step) + "\n";
        FAIL() << text << Run(choice, shrunk);
    }
}

}  // namespace
