// The presets with which the models are delivered, a table for each kind. Only for the table of models.
#pragma once

#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

inline constexpr FactoryPreset kUsualPresets[] = {
    {L"$DEFAULT", L"Default", 50, 0.2, 1, false, true, 8, 10, 75, true},
    {L"$SHINY", L"Shiny", 20, 0.05, 1, false, true, 3, 20, 65, true},
    {L"$DARK", L"Dark", 100, 0.5, 2, false, true, 5, 10, 75, false},
    {L"$SHEETMETAL", L"Sheet metal", 35, 0.15, 1, true, true, 6, 25, 70, true},
    {L"@QUALIFICATION", L"Qualification", 40, 0.2, 1, false, false, 10, 0, 60, false},
};

// For imagers with a gain of 4, which take dark surfaces in half the time.
inline constexpr FactoryPreset kHighIsoPresets[] = {
    {L"$DEFAULT", L"Default", 50, 0.2, 1, false, true, 8, 10, 75, true},
    {L"$SHINY", L"Shiny", 20, 0.05, 1, false, true, 3, 20, 65, true},
    {L"$DARK", L"Dark", 100, 0.25, 4, false, true, 6, 10, 75, false},
    {L"$DARKMATTE", L"Dark and matt", 100, 0.3, 4, true, true, 5, 10, 80, false},
    {L"@QUALIFICATION", L"Qualification", 40, 0.2, 1, false, false, 10, 0, 60, false},
};

// Its pages offer thresholds up to 5 percent.
inline constexpr FactoryPreset kHandheldPresets[] = {
    {L"$DEFAULT", L"Default", 50, 0.2, 1, true, true, 3, 10, 80, true},
    {L"$SHINY", L"Shiny", 20, 0.05, 1, true, true, 2, 20, 70, true},
    {L"$DARK", L"Dark", 100, 0.5, 2, true, false, 1, 0, 85, false},
    {L"$FEATURESSHEETMETAL", L"Sheet metal features", 35, 0.15, 1, true, true, 4, 30, 75, true},
    {L"@QUALIFICATION", L"Qualification", 40, 0.2, 1, false, false, 5, 0, 60, false},
};

}  // namespace hx::simulator
