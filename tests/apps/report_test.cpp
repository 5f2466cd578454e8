// hxctl report: what it tells, and above all what it does not.
#include <nlohmann/json.hpp>

#include "apps/hosting/report/SerialNumbers.h"
#include "tests/apps/hxctl_fixture.h"

namespace {

class Report : public Hxctl {
protected:
    void WriteLog(const std::string& run, const std::string& bytes) const {
        const std::string logs = "data/Orvel/Logs/";
        std::filesystem::create_directories(m_folder / logs);
        Write(logs + "HXScannerCtrls_20240131_" + run + ".log", bytes);
    }
    static std::string Record(const std::string& level, const std::string& message) {
        return "31-01-2024 at 23:59:59\n\t[Level]\t\t=\t" + level +
               "\n\t[File]\t\t=\tF\n\t[Line]\t\t=\t7\n\t[Location]\t=\tC::M\n\t[Message]\t=\t" + message +
               "\n";
    }
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(Report, HasNoSerialNumberUnlessItIsAskedFor) {
    WriteLog("235958", Record("Error", "no answer of hx-1042:\n\tport 1042"));
    for (const char* const options :
         {"", " --json", " --locale de-DE", " --state 2", " --disconnected --json"}) {
        SCOPED_TRACE(options);
        const Answer answer = Run(std::string("report") + options);
        EXPECT_EQ(answer.exit, 0) << answer.err;
        EXPECT_TRUE(Contains(answer.out, "(left out): port (left out)")) << answer.out;
        EXPECT_FALSE(Contains(answer.out, "1042")) << answer.out;
        const bool is_shown = !Contains(options, "--state") && !Contains(options, "--disconnected");
        const Answer whole = Run(std::string("report --serials") + options);
        EXPECT_TRUE(Contains(whole.out, "no answer of hx-1042: port 1042")) << whole.out;
        EXPECT_EQ(Contains(whole.out, "HX-1042"), is_shown) << whole.out;
    }
}

TEST_F(Report, FindsNumbersOfAnyKindAndWithholdsWhatItCannotSearch) {
    const std::string number = "<ScannerSerialNumber type=\"string\">820-0147</ScannerSerialNumber>";
    const auto changed = [&](const std::string& serial, const std::string& name) {
        std::ifstream file(HX_SOURCE_DIR "/docs/examples/properties_hx.xml");
        std::string document(std::istreambuf_iterator<char>(file), {});
        const auto replace = [&](const std::string& part, const std::string& by) {
            const size_t at = document.find(part);
            ASSERT_NE(at, std::string::npos) << part;
            document.replace(at, part.size(), by);
        };
        replace(number, serial);
        replace("T820 (S/N 820-0147)", name);
        return document;
    };
    const auto element = [](const std::string& text) {
        return "<ScannerSerialNumber type=\"string\">" + text + "</ScannerSerialNumber>";
    };
    const struct {
        std::string serial, name, logged, hidden, told;
    } rows[] = {
        {element("ABCDEF"), "HX (S/N ABCDEF)", "abcdef failed", "cdef", "HX (S/N (left out))"},
        {element("&#10;AB&#13;12 X&#160;"), "HX AB 12 X", "AB\n12  X", "12 X", "HX (left out)"},
        {element("A&amp;B1"), "HX A&amp;B1 &amp; more", "A&B1 it is", "&B", "HX (left out) & more"},
        {"", "T820 (S/N 820-0147)", "820-0147 failed", "0147", "T820 (S/N (left out))"},
        {element("0"), "HX 0", "0 of 2023", " 0 ", "(left out) of 2023"},
        {element("HX-2024-0001"), "HX", "\xFF in 2024", "in 2024", "31-01-2024 at 23:59:59"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.logged);
        Write("p.xml", changed(row.serial, row.name));
        WriteLog("235958",
                 Record("Error", row.logged) + "\xFF HX-2024-0001\n" + Record("Error", "x").substr(23));
        for (const char* const options : {"", " --json", " --state 2"}) {
            const Answer answer = Run(std::string("report --properties p.xml") + options);
            EXPECT_EQ(answer.exit, 0) << answer.err;
            EXPECT_FALSE(Contains(answer.out, row.hidden)) << answer.out;
            EXPECT_TRUE(Contains(answer.out, row.told) || Contains(options, "--state")) << answer.out;
        }
    }
    const std::string refused = "report --fault GetDriverProperties=E_FAIL:*";
    EXPECT_TRUE(
        Run(refused).out.ends_with("\nLast errors\nleft out: no serial number is known that could be "
                                   "hidden in them; --serials tells them as they are\n"));
    const auto report = nlohmann::json::parse(Run(refused + " --json").out);
    EXPECT_TRUE(report.at("errors").empty() && report.contains("errorsLeftOut"));
    EXPECT_TRUE(Contains(Run(refused + " --serials").out, "in 2024"));
}

TEST_F(Report, TellsThePageTheVersionsAndTheLastErrorsOfAllRuns) {
    std::string older;
    for (int i = 0; i < 30; ++i) older += Record("Error", "older " + std::to_string(i));
    WriteLog("235957", older);
    WriteLog("235958", Record("Error", "bad \xFF byte") + Record("Warning", "no error"));
    const auto report = nlohmann::json::parse(Run("report --json --model T820").out, nullptr, false);
    ASSERT_TRUE(report.is_object());
    EXPECT_EQ(report.at("page").size(), 7u) << report;
    EXPECT_EQ(report.at("page")[1].at("id"), 236);
    EXPECT_EQ(report.at("page")[1].at("label"), "Serial Number:");
    EXPECT_EQ(report.at("page")[1].at("value"), "(left out)");
    EXPECT_EQ(report.at("page")[1].at("group"), "General");
    EXPECT_FALSE(report.at("software").at("library").get<std::string>().empty());
    EXPECT_FALSE(report.at("system").at("operatingSystem").get<std::string>().empty());
    EXPECT_EQ(report.at("report").at("time").get<std::string>().back(), 'Z');
    const auto& errors = report.at("errors");
    ASSERT_EQ(errors.size(), 20u);
    EXPECT_EQ(errors.front().at("text"), "older 11");
    EXPECT_EQ(errors.back().at("text"), "bad \xEF\xBF\xBD byte");
    // The mount's row is hidden for every other model.
    EXPECT_EQ(nlohmann::json::parse(Run("report --json").out).at("page").size(), 6u);
    std::filesystem::remove_all(m_folder / "data");
    EXPECT_TRUE(Run("report").out.ends_with("\nLast errors\nnone\n"));
}

TEST_F(Report, WhatCannotBeDoneIsSaid) {
    const struct {
        const char* arguments;
        int exit;
        const char* reason;
    } rows[] = {
        {"--model attic", 2, "no model \"attic\""},
        {"--locale xx-nothing", 2, "no locale"},
        {"--state 3", 2, "--state"},
        {"--state 1 --disconnected", 2, "excludes"},
        {"--fault GetDriverProperties=E_ACCESSDENIED", 0, "the page said: "},
    };
    for (const auto& row : rows) {
        const Answer answer = Run(std::string("report ") + row.arguments);
        EXPECT_EQ(answer.exit, row.exit) << row.arguments;
        EXPECT_TRUE(Contains(answer.err, row.reason)) << answer.err;
    }
}

TEST(SerialNumbersInTexts, AreMaskedWithTheirLongerRunsOfDigits) {
    const struct {
        const wchar_t* number;
        const wchar_t* text;
        const wchar_t* masked;
    } rows[] = {
        {L"HX-1042", L"HX (S/N hx-1042), 10421", L"HX (S/N #), #1"},
        {L" HX-1042 ", L"HX-1042HX-1042!", L"#!"},
        {L"820-0147", L"T820 0147", L"T820 #"},
        {L"12345678 90", L"12345678 90 and 12345678", L"# and #"},
        {L"7", L"7/17, T7, 7", L"#/17, T7, #"},
        {L"AB", L"ab, cab", L"#, cab"},
        {L"ABCDEF", L"HX abcdef", L"HX #"},
        {L"\n AB\n12\u00A0", L"no AB \t12", L"no #"},
        {L"\uFF11\uFF12", L"HX \uFF11\uFF12", L"HX #"},
        {L"", L"1042", L"1042"},
        {L"", L"T820 (s/n: 820-0147) and (S/N AB 12), S/N", L"T820 (s/n: #) and (S/N #), S/N"},
        {L"", L"(S/N ) S/N A-1", L"(S/N ) #"},
    };
    for (const auto& row : rows) {
        hosting::SerialNumbers numbers(L"#");
        numbers.Hide(row.number);
        EXPECT_EQ(numbers.Masked(row.text), row.masked);
    }
}

}  // namespace
