// The control of the tests, a class of a library of its own. It writes down what it is asked; a test can make
// it fail at any step, and do something of its own before the step is done.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/com/ole_control.h"
#include "platform/ui/window.h"

inline constexpr CLSID CLSID_Gauge = hx::MakeGuid("C0000000-0000-0000-0000-0000000000B1");
// Has no window, and no idea of containers.
inline constexpr CLSID CLSID_Mute = hx::MakeGuid("C0000000-0000-0000-0000-0000000000B2");

struct Script {
    std::vector<std::string> steps;
    std::map<std::string, HRESULT> results;  // of steps that are not done then
    std::map<std::string, std::function<void()>> doings;

    template <class F>
    HRESULT Step(const std::string& name, F&& step) {
        steps.push_back(name);
        if (const auto found = doings.find(name); found != doings.end()) {
            const std::function<void()> doing = std::exchange(found->second, nullptr);
            if (doing) doing();
        }
        const auto result = results.find(name);
        return result == results.end() ? step() : result->second;
    }
    std::vector<std::string> TakeSteps() { return std::exchange(steps, {}); }
};

struct __attribute__((visibility("default"))) Gauges {
    static Script& TheScript();
    static hx::ui::Window* TheWindow();  // of the last gauge; null for none
    static int LivingWindows();
    static std::optional<std::string> Language();  // what the last one was told when it got its window
    static bool NoneLeft();                        // of the library's objects
};
