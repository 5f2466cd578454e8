// Whatever an operator does, in whatever order: the profile editor against a small account of what should
// have become of the profiles. And with a scanner that fails somewhere: no profile gets what is another
// one's.
#include <rapidcheck.h>

#include <algorithm>

#include "tests/controls/editor/editor_page.h"

namespace {

using editing::Bench;

struct Answer {
    std::string what, name;
};

struct Step {
    std::string what, argument;
    std::vector<Answer> answers;

    std::string Text() const {
        std::string text = what == "reconnect" ? "unplug; plug" : what + " " + argument;
        const char* separator = " ? ";
        for (const Answer& answer : answers) {
            text += separator + answer.what + " " + answer.name;
            separator = ", ";
        }
        return text;
    }
};

std::ostream& operator<<(std::ostream& out, const Step& step) {
    return out << step.Text();
}

struct Profile {
    std::string name, display;
    double stored = 0;

    bool IsPredefined() const { return name.front() == '$'; }
};

std::string Small(std::string text) {
    for (char& letter : text) letter = static_cast<char>(std::tolower(letter));
    return text;
}

// What should be, from the operator's point of view.
class Account {
public:
    // False if the page is to stay.
    bool Apply(const Step& step) {
        m_answers = step.answers;
        if (step.what == "edit") Edit(std::stoi(step.argument));
        if (step.what == "discard") Take(m_baseline);
        if (step.what == "change") Change(step.argument);
        if (step.what == "initialise") m_wanted = step.argument;
        if (step.what == "rename") Rename();
        if (step.what == "delete") Delete();
        if (step.what == "saveas") {
            if (const std::string name = Named(); !name.empty()) Show(AddAndRestore(name));
        }
        if (step.what == "select") Select(Resolved(step.argument));
        if (step.what == "close") {
            if (!Leave()) return false;
            Show(m_current);
        }
        if (step.what == "reconnect") Reconnect();
        return true;
    }

    std::string State() const {
        std::string text;
        for (const Profile& profile : Sorted()) {
            const bool current = profile.name == m_current;
            text += (current && m_modified ? "*" : "") + profile.display + ":" +
                    editing::PowerText(profile.stored) + (current ? "< " : " ");
        }
        return text + std::to_string(m_shown);
    }
    size_t Boxes() const { return m_boxes; }

private:
    std::vector<Profile> Sorted() const {
        std::vector<Profile> rows = m_profiles;
        std::ranges::sort(rows, {}, [](const Profile& profile) {
            return std::pair(!profile.IsPredefined(), Small(profile.display));
        });
        return rows;
    }
    Profile* Find(const std::string& name) {
        const auto found = std::ranges::find(m_profiles, name, &Profile::name);
        return found != m_profiles.end() ? &*found : nullptr;
    }
    // The name in the case in which there is such a profile; "" for none.
    std::string Resolved(const std::string& name) {
        if (Find(name)) return name;
        for (const Profile& profile : m_profiles) {
            if (Small(profile.name) == Small(name)) return profile.name;
        }
        return "";
    }
    void Select(const std::string& name) {
        if (name.empty() || (m_modified && name == m_current)) return;
        if (Leave()) Show(name);
    }
    void Edit(int32_t power) {
        m_shown = power;
        m_modified = power != m_baseline;
    }
    void Take(double power) {
        m_baseline = power;
        m_shown = static_cast<int32_t>(std::lround(power));
        m_modified = false;
    }
    void Show(const std::string& name) {
        m_current = m_wanted = name;
        Take(Find(name)->stored);
    }
    void Change(const std::string& text) {
        const size_t equals = text.find('=');
        if (Profile* const profile = Find(text.substr(0, equals))) {
            profile->stored = std::stod(text.substr(equals + 1));
        }
    }
    // Edits are compared with what is stored by then; without any, the controls' values are what is compared.
    void Reconnect() {
        if (m_modified) {
            m_baseline = Find(m_current)->stored;
            return Edit(m_shown);
        }
        const std::string wanted = Resolved(m_wanted);
        Show(wanted.empty() ? Sorted().front().name : wanted);
        m_baseline = m_shown;
    }
    // The profile that was edited has what it had when it was shown.
    std::string AddAndRestore(const std::string& name) {
        Find(m_current)->stored = m_baseline;
        m_profiles.push_back({name, name, static_cast<double>(m_shown)});
        return name;
    }
    // The next good name that is entered; "" if there is none.
    std::string Named() {
        while (!m_answers.empty()) {
            const Answer answer = m_answers.front();
            m_answers.erase(m_answers.begin());
            m_last = answer.what;
            if (answer.what != "save") return "";
            const bool taken = std::ranges::any_of(m_profiles, [&](const Profile& profile) {
                return Small(profile.name) == Small(answer.name);
            });
            if (!taken && !answer.name.empty() && std::string("$@*").find(answer.name[0]) > 3) {
                return answer.name;
            }
            ++m_boxes;
        }
        m_last = "cancel";
        return "";
    }
    // What becomes of edits; false if they are not left.
    bool Leave() {
        if (!m_modified) return true;
        if (!Find(m_current)->IsPredefined()) {
            Find(m_current)->stored = m_shown;
        } else if (const std::string name = Named(); !name.empty()) {
            m_current = AddAndRestore(name);
        } else if (m_last == "cancel") {
            return false;
        } else {
            Find(m_current)->stored = m_baseline;
        }
        return true;
    }
    void Rename() {
        if (Find(m_current)->IsPredefined()) {
            ++m_boxes;
        } else if (const std::string name = Named(); !name.empty()) {
            Profile& profile = *Find(m_current);
            if (m_wanted == m_current) m_wanted = name;
            profile.name = profile.display = m_current = name;
        }
    }
    void Delete() {
        if (Find(m_current)->IsPredefined()) {
            ++m_boxes;
            return;
        }
        const auto rows = Sorted();
        const auto row = std::ranges::find(rows, m_current, &Profile::name) - rows.begin();
        std::erase_if(m_profiles, [&](const Profile& profile) { return profile.name == m_current; });
        const auto left = Sorted();
        Show(left[std::min(static_cast<size_t>(row), left.size() - 1)].name);
    }

    std::vector<Profile> m_profiles = {
        {"$DEFAULT", "Standard", 50.4}, {"$FINE", "Fine", 20}, {"Own", "Own", 30.3}, {"Pipe", "Pipe", 40}};
    std::string m_current = "$DEFAULT";
    std::string m_wanted = "$DEFAULT";  // by the host
    int32_t m_shown = 50;
    double m_baseline = 50;
    bool m_modified = false;
    std::vector<Answer> m_answers;
    std::string m_last;
    size_t m_boxes = 0;
};

rc::Gen<std::string> AnyOf(std::vector<std::string> texts) {
    return rc::gen::elementOf(std::move(texts));
}

rc::Gen<Step> AnyStep() {
    return rc::gen::exec([] {
        // Names that are there, were there, may come, and may not.
        const auto name = AnyOf({"$DEFAULT", "$FINE", "Own", "Pipe", "a new one", "Zoo"});
        const auto new_name = AnyOf({"a new one", "Zoo", "OWN", "pipe", "fine", "", "@x", "$FINE", "%s (1)"});
        Step step;
        step.what = *AnyOf({"edit", "edit", "edit", "select", "select", "select", "saveas", "rename",
                            "discard", "delete", "close", "reconnect", "initialise", "change"});
        if (step.what == "edit") step.argument = std::to_string(*rc::gen::inRange(1, 101));
        if (step.what == "select" || step.what == "initialise") step.argument = *name;
        if (step.what == "change") {
            step.argument =
                *AnyOf({"$FINE", "Own", "Pipe", "a new one"}) + *AnyOf({"=7", "=20.3", "=42.4", "=99.6"});
        }
        const bool prompt = step.what == "select" || step.what == "close";
        if (prompt || step.what == "saveas" || step.what == "rename") {
            const size_t answers = *rc::gen::inRange<size_t>(0, 4);
            while (step.answers.size() < answers) {
                const std::string what =
                    *AnyOf(prompt ? std::vector<std::string>{"save", "save", "discard", "cancel"}
                                  : std::vector<std::string>{"save", "save", "save", "cancel"});
                step.answers.push_back({what, what == "save" ? *new_name : ""});
            }
        }
        return step;
    });
}

const std::vector<std::string> kProfiles = {"$DEFAULT=Standard:50.4", "$FINE=Fine:20", "Own=Own:30.3",
                                            "Pipe=Pipe:40"};

TEST(ProfileEditorModel, ProfilesAreWhatTheOperatorMadeOfThem) {
    EXPECT_TRUE(rc::check([] {
        const auto steps = *rc::gen::container<std::vector<Step>>(AnyStep());
        Bench bench(kProfiles);
        Account account;
        size_t boxes = 0;
        for (const Step& step : steps) {
            const bool had_edits = bench.page->IsModified();
            bench.Do(step.Text());
            // Without edits the menu offers no discarding.
            if (step.what != "discard" || had_edits) {
                const bool done = account.Apply(step);
                if (step.what == "close") RC_ASSERT(bench.committed == done);
            }
            const std::string texts = bench.Boxes();
            if (!texts.empty()) boxes += 1 + static_cast<size_t>(std::ranges::count(texts, '|'));
            RC_ASSERT(bench.State() == account.State());
            RC_ASSERT(boxes == account.Boxes());
            RC_ASSERT(bench.Wrong() == "");
            const auto stored = bench.Stored();
            RC_ASSERT(std::lround(stored.at("$DEFAULT")) == 50);
            if (step.what != "close" || !bench.committed) continue;
            RC_ASSERT(bench.Presets().SelectedName() == bench.page->GetCurrentPresetName());
            // What is kept is what the page shows to be stored.
            for (const auto& [name, power] : stored) {
                RC_ASSERT(bench.script.values.at(editing::Wide(name)).laser_power == power);
            }
        }
    }));
}

TEST(ProfileEditorModel, FailuresMixNoProfiles) {
    const std::vector<std::string> kCalls = {"ActivateDynamicSettings",
                                             "SaveDynamicSettingsPresets",
                                             "CreateDynamicSettingsPreset",
                                             "GetLaserPower",
                                             "SetLaserPower",
                                             "GetMaxInclination",
                                             "SetRFEnabled",
                                             "SetName",
                                             "AcquireHandle",
                                             "GetMaxExposureTime",
                                             "ReleaseHandle"};
    EXPECT_TRUE(rc::check([&] {
        const auto steps = *rc::gen::container<std::vector<Step>>(AnyStep());
        Bench bench(kProfiles);
        bench.script.fails_once = true;
        // What each profile may hold: what it held, and what was entered while it was the current one.
        std::map<std::string, std::set<double>> may_hold;
        for (const auto& [name, power] : bench.Stored()) may_hold[name] = {power, std::round(power)};
        for (const Step& step : steps) {
            if (*rc::gen::inRange(0, 3) == 0) {
                bench.script.failures = {{*AnyOf(kCalls), {E_FAIL, *rc::gen::inRange(0, 12)}}};
            }
            const std::string current = scripted::Narrow(bench.page->GetCurrentPresetName());
            const bool had_edits = bench.page->IsModified();
            const double shown = bench.page->Shown();
            const auto before = bench.Stored();
            // What becomes a new one: what is shown, or else what is stored.
            std::set<double> new_may_hold = {shown};
            const std::string selected = scripted::Narrow(bench.page->ProfileList().SelectedName());
            if (!bench.page->IsReady() && before.contains(selected)) {
                new_may_hold = {before.at(selected), std::round(before.at(selected))};
            }
            if (step.what == "rename") new_may_hold = may_hold[selected];
            if (step.what == "edit" && !current.starts_with('$')) {
                may_hold[current].insert(std::stoi(step.argument));
            }
            if (step.what == "change") {
                const size_t equals = step.argument.find('=');
                const double power = std::stod(step.argument.substr(equals + 1));
                may_hold[step.argument.substr(0, equals)].merge(std::set<double>{power, std::round(power)});
            }
            bench.Do(step.Text());
            const auto stored = bench.Stored();
            bool kept = bench.page->IsModified() && bench.page->Shown() == shown;
            for (const auto& [name, power] : stored) {
                if (!before.contains(name)) may_hold[name] = new_may_hold;
                RC_ASSERT(may_hold[name].contains(power));
                kept = kept || ((name == current || !before.contains(name)) && power == shown);
            }
            const bool dropped =
                step.what == "edit" || step.what == "discard" || step.what == "delete" ||
                std::ranges::find(step.answers, "discard", &Answer::what) != step.answers.end();
            RC_ASSERT(!had_edits || kept || dropped);
            RC_ASSERT(bench.Wrong(false) == "");
        }
    }));
}

}  // namespace
