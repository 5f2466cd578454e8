// What commands take from the words of their line.
#include <algorithm>
#include <charconv>

#include "apps/hxctl/page/script_command.h"
#include "platform/system/utf8.h"

namespace hxctl {

int32_t NumberOf(const Word& word, const char* what) {
    int32_t number = 0;
    const char* const end = word.text.data() + word.text.size();
    const auto [behind, error] = std::from_chars(word.text.data(), end, number);
    if (error != std::errc() || behind != end) {
        throw WrongLine(word, std::string(what) + " is a whole number, not \"" + word.text + "\"");
    }
    return number;
}

std::wstring WideOf(const Word& word) {
    return hx::FromUtf8(word.text).value_or(std::wstring());
}

std::optional<Word> TakeOption(Words& words, const char* option) {
    const auto found =
        std::ranges::find_if(words, [&](const Word& word) { return word.IsOption() && word.text == option; });
    if (found == words.end()) return std::nullopt;
    const auto value = found + 1;
    if (value == words.end()) throw WrongLine(*found, std::string(option) + " without what it is");
    Word taken = *value;
    words.erase(found, value + 1);
    return taken;
}

void CheckNoOptions(const Words& words) {
    const auto found = std::ranges::find_if(words, &Word::IsOption);
    if (found != words.end()) throw WrongLine(*found, "no option \"" + found->text + "\" here");
}

}  // namespace hxctl
