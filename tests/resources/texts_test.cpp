// Every language says the same things in the same places, and all of it in its own words.
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "controls/widgets/ControlHelp.h"
#include "platform/system/utf8.h"
#include "tests/resources/scripts.h"

namespace {

using hx_test::Base;
using hx_test::Kind;
using hx_test::KindOf;
using hx_test::Mnemonic;
using hx_test::Script;
using hx_test::Scripts;
using hx_test::Shown;

constexpr uint32_t kOk = 1;
constexpr uint32_t kCancel = 2;
constexpr uint32_t kCustom = 284;  // its text is set when its dialog opens
constexpr uint32_t kTabStop = 0x10000;

// Words that a language shares with English. Product names are the same everywhere.
using WordsByTag = std::map<std::string, std::set<std::wstring>>;
const WordsByTag& SharedWords(const std::string& module) {
    static const std::map<std::string, WordsByTag> words = {
        {hx_test::kPages,
         {{"de-DE", {L"HXScannerCtrls", L"Auto"}},
          {"es-ES", {L"HXScannerCtrls", L"Auto", L"General"}},
          {"fr-FR", {L"HXScannerCtrls", L"Auto", L"Gain", L"Versions"}},
          {"ja-JP", {L"HXScannerCtrls"}}}},
        {hx_test::kHost,
         {{"de-DE", {L"Operation:", L"System"}}, {"es-ES", {}}, {"fr-FR", {}}, {"ja-JP", {}}}},
    };
    return words.at(module);
}

bool IsEnglish(const Script& script) {
    return script.tag.empty() || script.tag.starts_with("en-");
}

std::map<std::string, std::wstring> TextsByPlace(const hx::Resources& resources) {
    std::map<std::string, std::wstring> texts;
    hx_test::ForEachText(resources, [&](const std::string& place, const std::wstring& text) {
        EXPECT_TRUE(texts.emplace(place, text).second) << place << " occurs twice";
    });
    return texts;
}

// What is filled in later: the "%" directives in their order, which counts as they take their values by
// position, then "%1" and "${name}" sorted, as these may change places.
std::vector<std::wstring> Placeholders(const std::wstring& text) {
    std::vector<std::wstring> directives;
    std::vector<std::wstring> names;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto next = static_cast<wint_t>(i + 1 < text.size() ? text[i + 1] : L' ');
        if (text[i] == L'%' && std::iswalnum(next)) {
            (std::iswdigit(next) ? names : directives).push_back(text.substr(i, 2));
        } else if (text.compare(i, 2, L"${") == 0) {
            names.push_back(text.substr(i, text.find(L'}', i) - i + 1));
        }
    }
    std::ranges::sort(names);
    directives.insert(directives.end(), names.begin(), names.end());
    return directives;
}

// Sorted: a sentence may be built in another way.
std::vector<int> NumbersOf(const std::wstring& text) {
    std::vector<int> numbers;
    for (size_t i = 0; i < text.size(); ++i) {
        if (!std::iswdigit(static_cast<wint_t>(text[i]))) continue;
        size_t length = 0;
        numbers.push_back(std::stoi(text.substr(i), &length));
        i += length;
    }
    std::ranges::sort(numbers);
    return numbers;
}

// In letters; East Asian characters are as wide as two.
size_t ColumnsOf(const std::wstring& text) {
    constexpr wchar_t kFirstOfTheEast = 0x2E80;
    return text.size() +
           static_cast<size_t>(std::ranges::count_if(text, [](wchar_t c) { return c >= kFirstOfTheEast; }));
}

bool HasWords(std::wstring text) {
    for (const std::wstring& placeholder : Placeholders(text)) {
        text.erase(text.find(placeholder), placeholder.size());
    }
    constexpr wchar_t kFirstAccentedLetter = 0xC0;
    return std::ranges::any_of(
        text, [](wchar_t c) { return c >= kFirstAccentedLetter || std::iswalpha(static_cast<wint_t>(c)); });
}

void ExpectSameItems(const std::vector<hx::MenuItem>& base, const std::vector<hx::MenuItem>& items) {
    ASSERT_EQ(base.size(), items.size());
    for (size_t i = 0; i < base.size(); ++i) {
        EXPECT_EQ(base[i].id, items[i].id) << "item " << i;
        EXPECT_EQ(base[i].flags, items[i].flags) << "item " << i;
        ExpectSameItems(base[i].items, items[i].items);
    }
}

// A mnemonic that a second text claims as well reaches neither at once.
class ClaimedMnemonics {
public:
    void Claim(const std::wstring& text) {
        const wchar_t mnemonic = Mnemonic(text);
        if (mnemonic != 0) {
            EXPECT_TRUE(std::iswalnum(static_cast<wint_t>(mnemonic))) << hx::ToUtf8(text);
            const auto [owner, is_new] = m_owners.emplace(mnemonic, text);
            EXPECT_TRUE(is_new) << hx::ToUtf8(text) << " and " << hx::ToUtf8(owner->second);
        }
    }

private:
    std::map<wchar_t, std::wstring> m_owners;
};

void ExpectOwnMnemonics(const std::vector<hx::MenuItem>& items) {
    ClaimedMnemonics claimed;
    for (const hx::MenuItem& item : items) {
        claimed.Claim(item.text);
        EXPECT_TRUE(item.id == 0 || Mnemonic(item.text) != 0) << hx::ToUtf8(item.text);
        ExpectOwnMnemonics(item.items);
    }
}

// Whether the control at `index` is something to go to, or names the control behind it that is.
bool NamesAnInput(const std::vector<hx::DialogControl>& controls, size_t index) {
    const hx::DialogControl& control = controls[index];
    const Kind kind = KindOf(control);
    if (kind == Kind::check_box || kind == Kind::push_button) {
        return control.id != kOk && control.id != kCancel && control.id != kCustom;
    }
    if (kind != Kind::label && kind != Kind::group) {
        return false;
    }
    if (!HasWords(control.text) || index + 1 == controls.size()) {
        return false;
    }
    const hx::DialogControl& next = controls[index + 1];
    const Kind next_kind = KindOf(next);
    const bool is_field =
        next_kind != Kind::check_box && next_kind != Kind::push_button && (next.style & kTabStop) != 0;
    return is_field && (kind == Kind::label || next_kind == Kind::list_box);
}

// One that a host shows inside its own dialog.
bool IsPage(const hx::DialogTemplate& dialog) {
    constexpr uint32_t kChildWindow = 0x40000000;
    return (dialog.style & kChildWindow) != 0;
}

bool EditsProfiles(const hx::DialogTemplate& dialog) {
    constexpr uint32_t kProfileList = 6000;
    return std::ranges::find(dialog.controls, kProfileList, &hx::DialogControl::id) != dialog.controls.end();
}

// What an operator uses or reads on a page of settings, beside the labels that name it.
bool NeedsHelp(const hx::DialogControl& control) {
    constexpr uint32_t kFrameRate = 228;
    constexpr uint32_t kExposureRows = 285;
    constexpr uint32_t kFirstSpeed = 290;
    constexpr uint32_t kLastSpeed = 293;
    const uint32_t id = control.id;
    return (control.style & kTabStop) != 0 || KindOf(control) == Kind::component || id == kFrameRate ||
           id == kExposureRows || (id >= kFirstSpeed && id <= kLastSpeed);
}

class Texts : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Modules, Texts, testing::Values(hx_test::kPages, hx_test::kHost));

TEST_P(Texts, EveryPromisedLanguageIsThere) {
    std::set<std::string> tags;
    for (const Script& script : Scripts(GetParam())) {
        tags.insert(script.tag);
    }
    for (const char* tag : {"", "en-US", "de-DE", "fr-FR", "es-ES", "ja-JP"}) {
        EXPECT_TRUE(tags.contains(tag)) << tag;
    }
}

TEST_P(Texts, EveryLanguageHasTheTextsOfTheBaseWithTheirPlaceholdersAndLines) {
    const std::map<std::string, std::wstring> base = TextsByPlace(Base(GetParam()).resources);
    for (const Script& script : Scripts(GetParam())) {
        SCOPED_TRACE(script.tag);
        const std::map<std::string, std::wstring> texts = TextsByPlace(script.resources);
        EXPECT_EQ(base.size(), texts.size());
        for (const auto& [place, base_text] : base) {
            const auto found = texts.find(place);
            ASSERT_NE(found, texts.end()) << place;
            const std::wstring& text = found->second;
            EXPECT_EQ(Placeholders(base_text), Placeholders(text)) << place;
            EXPECT_EQ(std::ranges::count(base_text, L'\n'), std::ranges::count(text, L'\n')) << place;
            EXPECT_EQ(base_text.empty(), text.empty()) << place;  // an empty string counts as missing
        }
    }
}

TEST_P(Texts, EveryLanguageHasTheDialogsOfTheBase) {
    for (const Script& script : Scripts(GetParam())) {
        EXPECT_EQ(Base(GetParam()).resources.dialogs.size(), script.resources.dialogs.size());
        for (const auto& [id, base] : Base(GetParam()).resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            const auto found = script.resources.dialogs.find(id);
            ASSERT_NE(found, script.resources.dialogs.end());
            const hx::DialogTemplate& dialog = found->second;
            EXPECT_EQ(base.style, dialog.style);
            EXPECT_EQ(base.extended_style, dialog.extended_style);
            EXPECT_EQ(base.font_face, dialog.font_face);
            ASSERT_EQ(base.controls.size(), dialog.controls.size());
            for (size_t i = 0; i < base.controls.size(); ++i) {
                EXPECT_EQ(base.controls[i].id, dialog.controls[i].id) << "control " << i;
                EXPECT_EQ(base.controls[i].window_class, dialog.controls[i].window_class) << "control " << i;
                EXPECT_EQ(base.controls[i].style, dialog.controls[i].style) << "control " << i;
            }
        }
    }
}

TEST_P(Texts, EveryLanguageHasTheMenusOfTheBase) {
    for (const Script& script : Scripts(GetParam())) {
        SCOPED_TRACE(script.tag);
        EXPECT_EQ(Base(GetParam()).resources.menus.size(), script.resources.menus.size());
        for (const auto& [id, base] : Base(GetParam()).resources.menus) {
            const auto found = script.resources.menus.find(id);
            ASSERT_NE(found, script.resources.menus.end()) << id;
            ExpectSameItems(base.items, found->second.items);
        }
    }
}

TEST_P(Texts, NothingIsLeftUntranslated) {
    const std::map<std::string, std::wstring> english = TextsByPlace(Base(GetParam()).resources);
    for (const Script& script : Scripts(GetParam())) {
        SCOPED_TRACE(script.tag);
        const std::map<std::string, std::wstring> texts = TextsByPlace(script.resources);
        if (IsEnglish(script)) {
            EXPECT_EQ(english, texts);
            continue;
        }
        const auto allowed = SharedWords(GetParam()).find(script.tag);
        ASSERT_NE(allowed, SharedWords(GetParam()).end())
            << "name the words that are the same in this language";
        std::set<std::wstring> shared;
        for (const auto& [place, text] : texts) {
            const auto original = english.find(place);
            ASSERT_NE(original, english.end()) << place;
            if (HasWords(text) && Shown(text) == Shown(original->second)) {
                EXPECT_TRUE(allowed->second.contains(Shown(text))) << place << ": " << hx::ToUtf8(text);
                shared.insert(Shown(text));
            }
        }
        EXPECT_EQ(allowed->second, shared) << "a word that no text needs is not to be listed";
    }
}

TEST_P(Texts, MnemonicsAreUniqueAndReachEveryInput) {
    for (const Script& script : Scripts(GetParam())) {
        for (const auto& [id, dialog] : script.resources.dialogs) {
            SCOPED_TRACE(script.tag + ", dialog " + std::to_string(id));
            const hx::DialogTemplate& base = Base(GetParam()).resources.dialogs.at(id);
            ClaimedMnemonics claimed;
            for (size_t i = 0; i < dialog.controls.size(); ++i) {
                const std::wstring& text = dialog.controls[i].text;
                claimed.Claim(text);
                const bool is_needed = Mnemonic(base.controls.at(i).text) != 0 ||
                                       (GetParam() == hx_test::kPages && NamesAnInput(dialog.controls, i));
                EXPECT_TRUE(!is_needed || Mnemonic(text) != 0) << hx::ToUtf8(text);
            }
        }
        for (const auto& [id, menu] : script.resources.menus) {
            SCOPED_TRACE(script.tag + ", menu " + std::to_string(id));
            ExpectOwnMnemonics(menu.items);
        }
    }
}

TEST(TextsOfModules, TheHostLeavesTheMnemonicsOfItsPagesToThePages) {
    constexpr uint32_t kHostDialog = 100;
    for (const Script& host : Scripts(hx_test::kHost)) {
        SCOPED_TRACE(host.tag);
        const auto page = std::ranges::find(Scripts(), host.tag, &Script::tag);
        ASSERT_NE(page, Scripts().end());
        for (const auto& [id, inner] : page->resources.dialogs) {
            if (!IsPage(inner)) continue;
            ClaimedMnemonics claimed;
            for (const hx::DialogTemplate& dialog : {host.resources.dialogs.at(kHostDialog), inner}) {
                for (const hx::DialogControl& control : dialog.controls) claimed.Claim(control.text);
            }
        }
    }
}

TEST(TextsOfPages, EveryControlOfTheSettingsPagesHasHelpAndEveryReasonItsWords) {
    constexpr uint32_t kFirstHelp = 3000;
    constexpr uint32_t kEndOfHelp = 10000;
    for (const Script& script : Scripts()) {
        SCOPED_TRACE(script.tag);
        std::set<uint32_t> expected;
        for (const auto& [id, dialog] : script.resources.dialogs) {
            if (!EditsProfiles(dialog)) continue;
            for (const hx::DialogControl& control : dialog.controls) {
                if (NeedsHelp(control)) expected.insert(kFirstHelp + control.id);
            }
        }
        for (auto reason = static_cast<uint32_t>(hx::Disabled::kNotSetUp);
             reason <= static_cast<uint32_t>(hx::Disabled::kNotReadable); ++reason) {
            expected.insert(reason);
        }
        std::set<uint32_t> found;
        const std::map<uint32_t, std::wstring>& strings = script.resources.strings;
        for (auto i = strings.lower_bound(*expected.begin()); i != strings.lower_bound(kEndOfHelp); ++i) {
            found.insert(i->first);
        }
        EXPECT_EQ(expected, found);
    }
}

TEST(TextsOfPages, HelpIsShortSentencesWithTheSameNumbersInEveryLanguage) {
    constexpr uint32_t kFirst = static_cast<uint32_t>(hx::Disabled::kNotSetUp);
    constexpr uint32_t kEnd = 10000;
    constexpr size_t kMostColumns = 200;  // four lines or so
    for (const Script& script : Scripts()) {
        const std::map<uint32_t, std::wstring>& strings = script.resources.strings;
        for (auto i = strings.lower_bound(kFirst); i != strings.lower_bound(kEnd); ++i) {
            const auto& [id, text] = *i;
            SCOPED_TRACE(script.tag + ", string " + std::to_string(id));
            EXPECT_EQ(text.find_first_of(L"&\n\t"), std::wstring::npos);
            EXPECT_TRUE(text.ends_with(L'.') || text.ends_with(L'。')) << hx::ToUtf8(text);
            EXPECT_LE(ColumnsOf(text), kMostColumns);
            EXPECT_EQ(NumbersOf(Base().resources.strings.at(id)), NumbersOf(text)) << hx::ToUtf8(text);
        }
    }
}

}  // namespace
