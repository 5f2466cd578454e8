#include "apps/hxctl/page/script_runner.h"

#include <algorithm>

#include "apps/hxctl/page/script_command.h"
#include "core/errors/MException.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

const ScriptCommand& CommandOf(const Word& word) {
    for (const auto family : {HostCommands(), ApiCommands(), PersonCommands(), ListCommands(),
                              FaultCommands(), ReportCommands()}) {
        const auto found = std::ranges::find_if(
            family, [&](const ScriptCommand& command) { return word.text == command.word; });
        if (found != family.end()) return *found;
    }
    throw WrongLine(word, "no command \"" + word.text + "\"");
}

void Run(PageHost& host, Words& words, Json& answer) {
    const ScriptCommand& command = CommandOf(words[0]);
    const size_t count = words.size() - 1;
    if (count < command.least || count > command.most) {
        const Word& at = count > command.most ? words[command.most + 1] : words.back();
        const char* const separator = *command.usage != '\0' ? " " : "";
        throw WrongLine(at, std::string(count > command.most ? "a word too many: " : "words are missing: ") +
                                command.word + separator + command.usage);
    }
    words.erase(words.begin());
    command.run(host, words, answer);
    PageHost::Settle();
}

}  // namespace

std::optional<Json> RunLine(PageHost& host, const std::string& line, size_t number) {
    Json answer = {{"command", ""}, {"ok", false}, {"line", number}};
    const std::string where = "line " + std::to_string(number);
    try {
        Words words = WordsOf(line);
        if (words.empty()) return std::nullopt;
        answer["command"] = words[0].text;
        Run(host, words, answer);
        answer["ok"] = true;
    } catch (const WrongLine& wrong) {
        answer["error"] = where + ", " + wrong.what();
    } catch (const hx::MException& exception) {
        answer["error"] = where + ": " + hx::ToUtf8(hx::ErrorCodesText(exception));
    } catch (const std::exception& error) {
        answer["error"] = where + ": " + error.what();
    }
    return answer;
}

std::string ScriptTally::Text() const {
    return std::to_string(failed) + " of " + std::to_string(lines) + " lines of the script failed";
}

ScriptTally RunScript(PageHost& host, std::istream& script, const std::function<void(const Json&)>& tell) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    ScriptTally tally;
    size_t number = 0;
    for (std::string line; std::getline(script, line);) {
        if (++number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
        const std::optional<Json> answer = RunLine(host, line, number);
        if (!answer) continue;
        ++tally.lines;
        if (!answer->at("ok")) ++tally.failed;
        tell(*answer);
    }
    return tally;
}

}  // namespace hxctl
