// hxctl: everything that the library does, from a terminal. Exit 0 done, 1 refused or failed (the reason goes
// to standard error), 2 usage.
#include <CLI/CLI.hpp>
#include <iostream>

#include "apps/hxctl/classes/classes_arguments.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/page/page_arguments.h"
#include "apps/hxctl/registry_reports.h"
#include "apps/hxctl/report/report_arguments.h"
#include "apps/hxctl/scanner/scanner_arguments.h"
#include "apps/hxctl/screenshot/screenshot_arguments.h"
#include "core/errors/MException.h"
#include "platform/registry/registry.h"
#include "platform/system/utf8.h"

namespace {

using hxctl::Outcome;

// The sub-commands; each leaves in `run` what is to be done.
class Commands {
public:
    explicit Commands(CLI::App& app) {
        app.require_subcommand(1);
        AddXml(app);
        AddSettings(app);
        AddInspect(app);
        AddFormat(app);
        AddException(app);
        AddKeys(app);
        AddLog(app);
        m_classes.Add(app);
        m_scanner.Add(app);
        m_page.Add(app);
        m_screenshot.Add(app);
        m_report.Add(app);
        for (CLI::App* command : app.get_subcommands({})) AddJson(*command);
    }

    Outcome Run() const { return m_run(); }

private:
    static constexpr const char* kFileHelp = "a text file, UTF-8 or UTF-16; - is standard input";
    static constexpr const char* kKeyHelp = "the key's number, as `keys list` shows it";

    void AddJson(CLI::App& command) {
        command.add_flag("--json", m_json, "one JSON document");
        for (CLI::App* inner : command.get_subcommands({})) AddJson(*inner);
    }

    void AddXml(CLI::App& app) {
        CLI::App* xml = app.add_subcommand("xml", "well-formed, or what is wrong; the element tree");
        xml->add_option("FILE", m_inspect.file, kFileHelp)->required();
        xml->add_flag("--tree", m_tree, "every element: depth, name, attributes, text");
        xml->callback([this] { m_run = [this] { return hxctl::RunXml(m_inspect.file, m_tree, m_json); }; });
    }

    void AddSettings(CLI::App& app) {
        CLI::App* settings =
            app.add_subcommand("settings", "a settings object, through the component library");
        settings->require_subcommand(1);
        AddSettingsAction(*settings, "new", "the text of a new object", false, true);
        AddSettingsAction(*settings, "check", "reads a text and tells the result code", true, false);
        AddSettingsAction(*settings, "convert", "reads a text and writes it again", true, true);
    }

    void AddSettingsAction(CLI::App& settings, const char* name, const char* help, bool read, bool write) {
        CLI::App* action = settings.add_subcommand(name, help);
        action->add_option("--type", m_settings.type, "257 connection settings, 258 measurement settings")
            ->required();
        if (read)
            action->add_option("FILE", m_settings.file,
                               "as above; left out: a null string, which gives 257 its defaults");
        action->callback([this, read, write] {
            m_settings.read = read;
            m_settings.write = write;
            m_run = [this] { return hxctl::RunSettings(m_settings, m_json); };
        });
    }

    void AddInspect(CLI::App& app) {
        CLI::App* inspect = app.add_subcommand(
            "inspect", "what a document of any kind holds, for people; or one record of it, as JSON");
        inspect->add_option("FILE", m_inspect.file, kFileHelp)->required();
        auto* record = inspect->add_option("--record", m_inspect.record, "the class of one record");
        inspect
            ->add_option(
                "--element", m_inspect.element,
                "the element that holds it; left out: the class's own, else the one that looks like it")
            ->needs(record);
        inspect->add_flag("--rewrite", m_inspect.rewrite, "prints the document that the record writes")
            ->needs(record);
        inspect
            ->add_option("--defaults", m_inspect.defaults,
                         "a document with the record that defaults come from")
            ->needs(record);
        inspect->callback([this] { m_run = [this] { return hxctl::RunInspect(m_inspect, m_json); }; });
    }

    void AddFormat(CLI::App& app) {
        CLI::App* format = app.add_subcommand(
            "format",
            "the settings format: a table for each record class, as Markdown (docs/settings_format.md)");
        format->callback([this] { m_run = [this] { return hxctl::RunFormat(m_json); }; });
    }

    void AddException(CLI::App& app) {
        CLI::App* exception = app.add_subcommand("exception", "what a chain document says to the user");
        exception->add_option("FILE", m_exception.file, kFileHelp)->required();
        exception->add_option("--locale", m_exception.locale, "the language of the message, as de-DE");
        exception->add_flag("--chain", m_exception.chain, "prints the document that would be sent on");
        exception->callback([this] { m_run = [this] { return hxctl::RunException(m_exception, m_json); }; });
    }

    void AddKeys(CLI::App& app) {
        CLI::App* keys =
            app.add_subcommand("keys", "the values of the registry: what there is, and what it is set to");
        keys->require_subcommand(1);
        CLI::App* list =
            keys->add_subcommand("list", "all keys, with path, type, category, group, flags and description");
        list->callback([this] { m_run = [this] { return hxctl::RunKeysList(m_json); }; });
        CLI::App* get = keys->add_subcommand("get", "the value of a key");
        get->add_option("ID", m_key_id, kKeyHelp)->required();
        get->callback([this] { m_run = [this] { return hxctl::RunKeysGet(m_key_id, m_json); }; });
        CLI::App* set = keys->add_subcommand("set", "writes the value of a key, if it is of the key's type");
        set->add_option("ID", m_key_id, kKeyHelp)->required();
        set->add_option(
               "VALUE", m_key_value,
               "an integer, true or false, a number, or a text; -- goes before a text with - in front")
            ->required();
        set->callback(
            [this] { m_run = [this] { return hxctl::RunKeysSet(m_key_id, m_key_value, m_json); }; });
    }

    void AddLog(CLI::App& app) {
        CLI::App* log = app.add_subcommand("log", "a module's newest log; what happened in a short session");
        auto* module = log->add_option("--module", m_log.module, "whose log")->capture_default_str();
        auto* follow = log->add_flag("--follow", m_log.follow, "waits for more, until interrupted");
        log->add_option("--events", m_events_file,
                        "uses the component library and writes its events to this file")
            ->excludes(module, follow);
        log->callback([this, log] {
            const bool events = log->count("--events") != 0;
            m_run = [this, events] {
                return events ? hxctl::RunLogEvents(m_events_file, m_json) : hxctl::RunLog(m_log, m_json);
            };
        });
    }

    std::function<Outcome()> m_run;
    hxctl::SettingsRequest m_settings;
    hxctl::InspectRequest m_inspect;
    hxctl::ExceptionRequest m_exception;
    uint32_t m_key_id = 0;
    std::string m_key_value;
    hxctl::LogRequest m_log;
    std::string m_events_file;
    bool m_tree = false;
    bool m_json = false;
    hxctl::ClassesArguments m_classes{m_run, m_json};
    hxctl::ScannerArguments m_scanner{m_run, m_json};
    hxctl::PageArguments m_page{m_run, m_json};
    hxctl::ScreenshotArguments m_screenshot{m_run, m_json};
    hxctl::ReportArguments m_report{m_run, m_json};
};

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Settings, documents and pages of HXScannerCtrls", "hxctl");
    Commands commands(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return hxctl::kUsage;
    }
    try {
        const Outcome outcome = commands.Run();
        hxctl::TellRegistryReports();
        // Closed, the store is whole in its one file, which users read who may make none beside it.
        hx::SetRegistry(nullptr);
        std::cout << outcome.output << std::flush;
        if (!outcome.reason.empty()) std::cerr << "hxctl: " << outcome.reason << '\n';
        if (std::cout) return outcome.exit;
        std::cerr << "hxctl: standard output cannot be written\n";
    } catch (const hx::MException& exception) {
        std::cerr << "hxctl: " << hx::ToUtf8(hx::ErrorCodesText(exception)) << '\n';
    } catch (const std::exception& error) {
        std::cerr << "hxctl: " << error.what() << '\n';
    }
    return hxctl::kRefused;
}
