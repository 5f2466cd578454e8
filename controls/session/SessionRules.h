// In what the sessions of the two settings pages differ, and what a change of the connection state leads to.
#pragma once

#include <cstdint>
#include <span>

#include "core/errors/MErrorLocation.h"

namespace hx {

// The classes of the pages, as their errors name them.
inline constexpr char kMeasurementPageClass[] = "CMeasSettingsDlg";
inline constexpr char kHandheldPageClass[] = "CHandheldMeasSettingsDlg";

enum class ConnectionAction : uint8_t {
    kNothing,
    kReopenUnlessAcquired,  // sets up anew, if the handle is not acquired
    kReleaseAndDrop,        // gives the scanner and the handle back
    kReopenAfresh,          // sets up anew; with a new handle, if one was acquired
};

struct ConnectionRow {
    int32_t stored;   // the state so far
    int32_t arrived;  // the new one
    ConnectionAction action;
};

// Where the operations of a page's session raise their errors.
struct SessionLocations {
    explicit SessionLocations(const char* page_class);

    MErrorLocation acquire;
    MErrorLocation release;
    MErrorLocation connection_change;
    MErrorLocation deselected;
    MErrorLocation destroy;
    MErrorLocation apply_settings;
    MErrorLocation apply_global_settings;
};

struct SessionRules {
    SessionLocations& (*locations)();
    // For every pair of known states; nothing follows from others.
    std::span<const ConnectionRow> connection_rows;
    bool stores_states_unselected;  // a state that arrives while another page is shown; else it is forgotten
    bool resumes;                   // a suspended scanner, when the handle is to be acquired

    ConnectionAction ActionFor(int32_t stored, int32_t arrived) const;
};

extern const SessionRules kMeasurementSession;
extern const SessionRules kHandheldSession;

}  // namespace hx
