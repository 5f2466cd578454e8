// hxctl page: what a script may say, what is answered to wrong lines, and the worked examples of its
// document.
#include <algorithm>
#include <map>
#include <sstream>

#include "apps/hxctl/page/script_command.h"
#include "tests/apps/hxctl_fixture.h"

namespace {

using hxctl::Json;

std::string DocumentText() {
    std::ifstream file(HX_SOURCE_DIR "/docs/scripting.md");
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

class PageScript : public Hxctl {
protected:
    std::vector<Json> Answers(const std::string& script, const std::string& options = {},
                              const std::string& page = "measurement") const {
        const Answer answer = Run("page " + page + " --script - " + options, script);
        std::vector<Json> answers;
        for (const std::string& line : LinesOf(answer.out)) answers.push_back(Json::parse(line));
        return answers;
    }
};

TEST(ScriptLine, HasWordsAndSaysWhereItIsWrong) {
    const struct {
        const char* line;
        std::vector<std::string> words;
        const char* error;
    } rows[] = {
        {"", {}, ""},
        {" \t\r", {}, ""},
        {"# row Shiny", {}, ""},
        {"row Shiny # the third", {"row", "Shiny"}, ""},
        {"row a#b", {"row", "a#b"}, ""},
        {"row \"#1\" \"\"", {"row", "#1", ""}, ""},
        {R"(row "a \"b\" \\ c")", {"row", R"(a "b" \ c)"}, ""},
        {R"(row C:\x)", {"row", R"(C:\x)"}, ""},
        {"row \xC3\xA4", {"row", "\xC3\xA4"}, ""},
        {"row \"a b", {}, "column 5: a quote that is not closed"},
        {"row \"a\"b", {}, "column 8: no blank"},
        {"row a\"b\"", {}, "column 6: a quote in the middle"},
        {R"(row "a\b")", {}, "column 7: in quotes"},
        {R"(row "a\)", {}, "column 7: in quotes"},
        {"row \xC3", {}, "column 1: the line is no UTF-8"},
    };
    for (const auto& row : rows) {
        std::vector<std::string> words;
        std::string error;
        try {
            for (const hxctl::Word& word : hxctl::WordsOf(row.line)) words.push_back(word.text);
        } catch (const hxctl::WrongLine& wrong) {
            error = wrong.what();
        }
        EXPECT_EQ(words, row.words) << row.line;
        EXPECT_TRUE(error.starts_with(row.error) && error.empty() == !*row.error)
            << row.line << ": " << error;
    }
}

struct Said {
    const char* line;
    const char* error;  // "" for none
};

void CheckSaid(const std::vector<Json>& answers, const std::vector<Said>& rows) {
    ASSERT_EQ(answers.size(), rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const std::string error = answers[i].value("error", "");
        EXPECT_EQ(answers[i].at("ok"), !*rows[i].error) << rows[i].line << ": " << error;
        EXPECT_NE(error.find(rows[i].error), std::string::npos) << rows[i].line << ": " << error;
    }
}

std::string ScriptOf(const std::vector<Said>& rows) {
    std::string script;
    for (const Said& row : rows) script += std::string(row.line) + "\n";
    return script;
}

TEST_F(PageScript, WrongLinesAreAnsweredAndTheScriptGoesOn) {
    const std::vector<Said> rows = {
        {"jump", "line 1, column 1: no command \"jump\""},
        {"select now", "line 2, column 8: a word too many: select"},
        {"set 207", "column 5: words are missing: set ID VALUE"},
        {"select", "the page is not created"},
        {"show", "the page has no window"},
        {"save", "the page is not created"},
        {"use second", "no page \"second\""},
        {"page attic", "column 6: no page \"attic\": there are measurement"},
        {"fail Nothing E_FAIL", "column 6: no operation \"Nothing\""},
        {"fail Resume E_WHATEVER", "column 13: \"E_WHATEVER\" is no result"},
        {"fail Resume S_OK", "is no failure of Resume"},
        {"fail Resume E_FAIL 0", "column 20: it fails once at least"},
        {"fail Resume E_FAIL --chain", "column 20: --chain without"},
        {"fail Resume E_FAIL --often 2", "column 20: no option \"--often\""},
        {"connection on", "column 12: the state is a whole number"},
        {"api X99", "no model \"X99\""},
        {"answer perhaps", "column 8: no answer \"perhaps\""},
        {"properties", "words are missing: properties FILE | none"},
        {"properties -", "column 12: the properties come from a file"},
        {"properties nowhere.xml", "nowhere.xml: No such file"},
        {"properties \"none\"", "none: No such file"},
        {"properties none", ""},
        {"create", ""},
        {"create", "the page is created already"},
        {"initialise A B C", "column 16: initialise DRIVER"},
        {"initialise A B C D E", "column 20: a word too many"},
        {"initialise A B C D --array null", "column 18: a word too many"},
        {"initialise A B C --array odd", "column 26: no array \"odd\""},
        {"initialise A B C --array null", "CMeasSettingsDlg.Initialise:InvalidArguments"},
        {"initialise A B C --array empty", "CMeasSettingsDlg.Initialise:InvalidArgumentType"},
        {"initialise A B C --array zero-size", "CMeasSettingsDlg.Initialise:MissingArguments"},
        {"initialise A B C --array bstr", "CMeasSettingsDlg.Initialise:InvalidArgumentType"},
        {"initialise A B C --array number", "CMeasSettingsDlg.Initialise:InvalidArgumentType"},
        {"api none", "SetHXApi answered E_INVALIDARG"},
        {"map none", "SetSettingsObjectMap answered E_INVALIDARG"},
        {"map", ""},
        {"close", ""},
        {"close", "the page is not created"},
    };
    CheckSaid(Answers(ScriptOf(rows), "--bare"), rows);
    EXPECT_EQ(Run("page measurement --bare --script -", "create").exit, 0);
    EXPECT_EQ(Run("page measurement --bare --script -", "create\ncreate").exit, 1);
    EXPECT_EQ(Run("page measurement --script nowhere").exit, 1);
    EXPECT_EQ(Run("page attic --script -").exit, 2);
    EXPECT_EQ(Run("page measurement --script - --locale xx-nothing").exit, 2);
}

TEST_F(PageScript, NobodyDoesWhatAPersonCouldNotDo) {
    const std::vector<Said> rows = {
        {"set 207 5", "control 207 is disabled"},
        {"initialise HXScanner HX F $DEFAULT", ""},
        {"select", ""},
        {"api HX 1", ""},
        {"set 207 101", "position 101 is not in 1 to 100"},
        {"press 269", "control 269 is hidden"},
        {"press 207", "control 207 is no button"},
        {"press -1", "control -1 is no button"},
        {"set 224 2", "column 9: a check box is set to 0 or 1"},
        {"set 999 1", "no control 999"},
        {"scroll 207 TB_THUMBTRACK", "column 12: no scroll code"},
        {"drop 207", "is not being dragged"},
        {"leave 210", "the focus is not in control 210"},
        {"row Nobody", "no profile \"Nobody\""},
        {"menu Default Delete", "\"Delete\" is disabled"},
        {"menu @outside Delete", "no menu came up"},
        {"key Default F13", "column 13: no key \"F13\""},
        {"drag 204 5000", ""},
        {"drop 207", "is not being dragged"},
        {"drop 204", ""},
    };
    CheckSaid(Answers(ScriptOf(rows)), rows);
}

TEST_F(PageScript, AModelHasOneScannerAndNoCallIsLost) {
    const std::vector<Json> answers = Answers(
        "initialise HXScanner HX F $DEFAULT\nselect\napi HX 1\ncalls\nrow Shiny\n"
        "page measurement other\nuse other\napi T820 1\ncalls\napi HX 1\n"
        "fail AcquireHandle E_FAIL 1 --text gone\nconnection 2\nconnection 1\nmessages\n");
    ASSERT_EQ(answers.size(), 14u);
    const auto activates = [](const Json& call) { return call.at("op") == "ActivateDynamicSettings"; };
    EXPECT_GE(std::ranges::count_if(answers[8].at("calls"), activates), 1);
    // The first page hears of it.
    EXPECT_EQ(answers[13].at("messages").size(), 1u);
}

// As pages see them that share a scanner; and what reaches the preview alone is among the calls.
TEST_F(PageScript, PagesAreAddressedByName) {
    const std::vector<Json> answers = Answers(
        "initialise HXScanner HX F $DEFAULT\nselect\napi HX 1\ncalls\nset 277 1\ncalls\n"
        "page measurement other\nuse other\nprofiles\nuse main\nprofiles\nconnection 0\nmessages\n");
    ASSERT_EQ(answers.size(), 13u);
    const auto reset = [](const Json& call) { return call.at("on") == "preview"; };
    EXPECT_EQ(std::ranges::count_if(answers[3].at("calls"), reset), 0);
    EXPECT_GE(std::ranges::count_if(answers[5].at("calls"), reset), 1);
    EXPECT_EQ(answers[8].at("rows").size(), 0u);
    EXPECT_EQ(answers[10].at("rows").size(), 4u);
    EXPECT_EQ(answers[12].at("messages"), Json::array());
}

// Of what drivers report: the values of type, serial number, both dates and mount rotation ("" for a hidden
// one), as the page shows them, and what it says. Dates that it can show are as the user's locale has them.
TEST_F(PageScript, DiagnosticsShowsWhatThereIsInTheDocument) {
    constexpr const char* kNone = "Unknown (not connected)";
    constexpr const char* kInternal = "An internal error occurred.";
    const struct {
        const char* model;
        const char* document;  // "none" for the model's own
        std::map<std::string, std::string> values;
        const char* message;
    } rows[] = {
        {"HX", "none", {{"235", "HX (S/N HX-1042)"}, {"236", "HX-1042"}, {"238", ""}}, ""},
        {"T820", "none", {{"235", "T820 (S/N 820-0147)"}, {"238", "60\u00B0"}}, ""},
        {"Handheld", "none", {{"236", "HH-0031"}, {"238", ""}}, ""},
        {"HX",
         "properties_dates.xml",
         {{"235", "T820 (S/N 820-0150)"},
          {"231", "Unknown"},
          {"234", "Invalid DateTime"},
          {"238", "0\u00B0"}},
         ""},
        {"HX", "properties_other_scanner.xml", {{"235", "ZRD 60"}, {"236", ""}, {"231", "Unknown"}}, ""},
        {"HX", "properties_no_device.xml", {{"235", kNone}, {"231", kNone}}, ""},
        {"HX", "properties_newer_version.xml", {{"235", kNone}}, kInternal},
        {"HX", "refused_not_xml.xml", {{"235", kNone}}, kInternal},
    };
    std::filesystem::create_symlink(HX_SOURCE_DIR "/docs/examples", m_folder / "documents");
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.model) + " " + row.document);
        const std::string file =
            std::string(row.document) == "none" ? "none" : std::string("documents/") + row.document;
        std::string script = std::string("select\napi ") + row.model + "\nproperties " + file +
                             "\nconnection 1\nmessages\nshow\n";
        const std::vector<Json> answers = Answers(script, "", "diagnostics");
        ASSERT_EQ(answers.size(), 6u);
        std::map<std::string, std::string> shown;
        for (const Json& control : answers[5].at("controls")) {
            const std::string id = std::to_string(control.at("id").get<int>());
            if (row.values.contains(id)) shown[id] = control.at("visible") ? control.at("text") : Json("");
        }
        EXPECT_EQ(shown, row.values);
        std::string said;
        for (const Json& message : answers[4].at("messages")) said += message.at("text");
        EXPECT_EQ(said, row.message);
    }
}

TEST_F(PageScript, EveryCommandIsInTheDocument) {
    const std::string document = DocumentText();
    for (const auto family : {hxctl::HostCommands(), hxctl::ApiCommands(), hxctl::PersonCommands(),
                              hxctl::ListCommands(), hxctl::FaultCommands(), hxctl::ReportCommands()}) {
        for (const hxctl::ScriptCommand& command : family) {
            const std::string row = std::string("\n| `") + command.word;
            EXPECT_TRUE(document.find(row + " ") != std::string::npos ||
                        document.find(row + "`") != std::string::npos)
                << command.word;
        }
    }
}

// The answers that the document shows; of long ones "..." stands for the middle.
TEST_F(PageScript, TheWorkedExamplesAnswerAsTheDocumentSays) {
    const std::string document = DocumentText();
    const std::string fence = "```json\n";
    const struct {
        const char* name;
        const char* page;
        int exit;
    } examples[] = {{"first_session", "measurement", 0},
                    {"modified_profile", "measurement", 0},
                    {"failing_scanner", "measurement", 1},
                    {"handheld", "handheld", 0},
                    {"diagnostics", "diagnostics", 1}};
    for (const auto& [name, page, exit] : examples) {
        std::filesystem::remove_all(m_folder / "data");
        const std::string path = std::string("/docs/examples/") + name + ".page";
        const Answer answer = Run(std::string("page ") + page + " --script '" HX_SOURCE_DIR + path + "'");
        EXPECT_EQ(answer.exit, exit) << name;
        const size_t place = document.find(fence, document.find(std::string("(examples/") + name));
        ASSERT_NE(place, std::string::npos) << name;
        const size_t begin = place + fence.size();
        const auto told = LinesOf(document.substr(begin, document.find("```", begin) - begin));
        const auto lines = LinesOf(answer.out);
        ASSERT_EQ(lines.size(), told.size()) << name;
        for (size_t i = 0; i < told.size(); ++i) {
            const size_t cut = std::min(told[i].find("..."), told[i].size());
            const size_t behind = std::min(cut + 3, told[i].size());
            EXPECT_TRUE(cut == told[i].size() ? lines[i] == told[i]
                                              : lines[i].starts_with(told[i].substr(0, cut)) &&
                                                    lines[i].ends_with(told[i].substr(behind)))
                << lines[i] << "\nfor " << told[i];
        }
    }
}

}  // namespace
