#include "apps/hxctl/scanner/scanner_arguments.h"

#include <CLI/CLI.hpp>

namespace hxctl {
namespace {

void AddCommon(CLI::App& command, ScannerRequest& request) {
    AddScanner(command, request, "the first");
    AddPresetsFolder(command, request);
}

}  // namespace

void ScannerArguments::Add(CLI::App& app) {
    CLI::App* scanner = app.add_subcommand(
        "scanner", "a simulated scanner, used as the pages use a real one: through its API");
    scanner->require_subcommand(1);
    CLI::App* list =
        scanner->add_subcommand("list", "models, surfaces, and operations that can be made to fail");
    list->callback([this] { m_run = [this] { return RunScannerList(m_json); }; });
    CLI::App* properties = scanner->add_subcommand("properties", "what the model's driver reports, as JSON");
    AddCommon(*properties, m_scanner);
    properties->add_flag("--document", m_document, "the document itself, of which others can be made");
    properties->callback(
        [this] { m_run = [this] { return RunScannerProperties(m_scanner, m_document, m_json); }; });
    AddPresets(*scanner);
    AddTrack(*scanner);
}

void AddScanner(CLI::App& command, ScannerRequest& request, const std::string& model_if_left_out) {
    command.add_option("--model", request.model, "one of `scanner list`; left out: " + model_if_left_out);
    command.add_option("--properties", request.properties,
                       "a file that the driver reports, - is standard input; left out: the model's own");
    command
        .add_option("--fault", request.faults,
                    "OPERATION=RESULT[:TIMES]: that operation fails so, once or TIMES times, * for always")
        ->take_all();
    command.add_flag("--calls", request.calls, "tells all calls of the API in the end");
}

void AddPresetsFolder(CLI::App& command, ScannerRequest& request) {
    command.add_option("--presets-folder", request.folder,
                       "where presets are kept; left out: with the data of all users");
}

void ScannerArguments::AddPresets(CLI::App& scanner) {
    CLI::App* presets = scanner.add_subcommand("presets", "the stored dynamic settings presets of a device");
    presets->require_subcommand(1);
    AddPresetsAction(*presets, "list", "all of them; * marks the selected one", PresetsAction::kList);
    AddPresetsAction(*presets, "save", "a new preset of the user's own, or other values for an old one",
                     PresetsAction::kSave);
    AddPresetsAction(*presets, "delete", "a preset of the user's own", PresetsAction::kDelete);
    AddPresetsAction(*presets, "export", "the user's own presets into a document", PresetsAction::kExport);
    AddPresetsAction(*presets, "import",
                     "the presets of such a document, in the place of those of the same name",
                     PresetsAction::kImport);
    AddPresetsAction(*presets, "reset", "back to the presets of the factory; the user's own are archived",
                     PresetsAction::kReset);
}

void ScannerArguments::AddPresetsAction(CLI::App& presets, const char* name, const char* help,
                                        PresetsAction action) {
    CLI::App* command = presets.add_subcommand(name, help);
    AddCommon(*command, m_presets.scanner);
    command->add_option("--owner", m_presets.owner,
                        "the device's internal name; left out: the model's device");
    if (action == PresetsAction::kSave || action == PresetsAction::kDelete) {
        command->add_option("NAME", m_presets.name, "of the preset")->required();
    }
    if (action == PresetsAction::kExport || action == PresetsAction::kImport) {
        command->add_option("FILE", m_presets.file, "a document; - is standard input or output")->required();
    }
    if (action == PresetsAction::kSave) {
        command->add_option("--from", m_presets.from, "the preset whose values it starts with");
        command->add_option("--exposure", m_presets.exposure_us, "microseconds");
        command->add_option("--laser-power", m_presets.laser_power_percent, "percent of the maximum");
        command->add_flag("--select", m_presets.select, "makes it the selected one");
    }
    command->callback(
        [this, action] { m_run = [this, action] { return RunScannerPresets(action, m_presets, m_json); }; });
}

void ScannerArguments::AddTrack(CLI::App& scanner) {
    CLI::App* track = scanner.add_subcommand("track", "a tracking session, and statistics of what was seen");
    AddCommon(*track, m_track.scanner);
    AddSurface(*track, m_track.scanner);
    track->add_option("--seconds", m_track.seconds, "how long")->capture_default_str();
    AddValues(*track, m_track.values);
    track->add_flag("--detect", m_track.detect, "lets the scanner look for exposure and laser power first");
    track->add_flag("--drop", m_track.drop, "drops the connection half way, and restores it");
    track->callback([this] { m_run = [this] { return RunScannerTrack(m_track, m_json); }; });
}

void AddSurface(CLI::App& command, ScannerRequest& request) {
    command.add_option("--surface", request.surface, "what lies before the scanner: one of `scanner list`");
}

void AddValues(CLI::App& command, PresetRequest& request) {
    command.add_option("--preset", request.preset, "which the scanner works with")->capture_default_str();
    command.add_option("--exposure", request.exposure_us, "microseconds, instead of the preset's");
    command.add_option("--laser-power", request.laser_power_percent,
                       "percent of the maximum, instead of the preset's");
}

}  // namespace hxctl
