#include "tests/controls/simulated_page.h"

#include <nlohmann/json.hpp>

namespace simulated {

std::string QuotedText(const std::string& text) {
    return nlohmann::json(text).dump();
}

std::vector<std::string> LinesOf(IHXSimulator& hands) {
    hx::Bstr json;
    EXPECT_EQ(hands.TakeCalls(json.put()), S_OK);
    std::vector<std::string> lines;
    for (const auto& call : nlohmann::json::parse(hx::ToUtf8(json.view()))) {
        std::string line = call["on"].get<std::string>() + "." + call["op"].get<std::string>() + "(";
        const char* separator = "";
        for (const auto& each : call["args"]) {
            line += separator + (each.is_string() ? each.get<std::string>() : each.dump());
            separator = ", ";
        }
        line += ")";
        if (const int64_t result = call["result"]; result != 0) {
            char hexadecimal[20];
            std::snprintf(hexadecimal, sizeof hexadecimal, " = %08x", static_cast<uint32_t>(result));
            line += hexadecimal;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace simulated
