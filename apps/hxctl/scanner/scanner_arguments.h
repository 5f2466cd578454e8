// The command line of hxctl scanner, and what other commands with a scanner have of it.
#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <string>

#include "apps/hxctl/scanner/scanner_command.h"

namespace hxctl {

// Options that fill the request, which outlives the parsing.
void AddScanner(CLI::App& command, ScannerRequest& request, const std::string& model_if_left_out);
void AddPresetsFolder(CLI::App& command, ScannerRequest& request);
void AddSurface(CLI::App& command, ScannerRequest& request);
void AddValues(CLI::App& command, PresetRequest& request);

class ScannerArguments {
public:
    // Each sub-command leaves in `run` what is to be done. All three outlive the parsing.
    ScannerArguments(std::function<Outcome()>& run, const bool& json) : m_run(run), m_json(json) {}
    void Add(CLI::App& app);

private:
    void AddPresets(CLI::App& scanner);
    void AddPresetsAction(CLI::App& presets, const char* name, const char* help, PresetsAction action);
    void AddTrack(CLI::App& scanner);

    std::function<Outcome()>& m_run;
    const bool& m_json;
    ScannerRequest m_scanner;
    bool m_document = false;
    PresetsRequest m_presets;
    TrackRequest m_track;
};

}  // namespace hxctl
