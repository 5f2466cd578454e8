// A simulated scanner with some profiles and a host's frame for the pages, all as a host has them: by name,
// through their interfaces. What the scanner stores is seen from outside.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>

#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/comptr.h"
#include "platform/ui/window.h"
#include "tests/platform/temporary_folder.h"

namespace hosted {

// Of a profile. What a page does not show of it is no number, or a gain of 0.
struct Values {
    // Laser power, exposure in hundredths of a percent, threshold, inclination, edge filter.
    std::array<double, 5> numbers{};
    std::array<bool, 3> flags{};  // automatic power, 3D edge filter, reflection filter
    uint32_t gain = 0;

    bool operator==(const Values&) const = default;
    // As pages see it: exposures drift, and what one does not show is as it may.
    bool IsSame(const Values& other) const;
};

struct Profile {
    std::string display_name;
    Values values;

    bool operator==(const Profile&) const = default;
};

class Scanner {
public:
    // Beside its own profiles it has others named Own 1, Own 2 and so on.
    explicit Scanner(const std::string& model, size_t own_profiles = 3);
    // The same scanner on another scanner API, with the same profiles.
    explicit Scanner(const Scanner& same);

    // By name; without those that are not for operators.
    std::map<std::string, Profile> Stored() const;
    // Since the last time, as JSON.
    std::string Calls() const;
    // The events so far have arrived.
    void Settle() const;
    void Fail(const std::string& operation, HRESULT result, int32_t after, int32_t times, bool hang_up) const;

    hx::ComPtr<IHXApi> api;
    hx::ComPtr<IHXSimulator> hands;
    std::wstring driver, device;

private:
    Scanner(const std::string& model, std::shared_ptr<const TemporaryFolder> folder);

    const std::shared_ptr<const TemporaryFolder> m_folder;
    const std::string m_model;
    hx::ComPtr<ICalibrationHandle> m_handle;
    double m_longest_exposure_us = 0;
};

struct Frame final : hx::ui::Window {
    Frame() {
        Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 1200, 800});
        Show(true);
    }
    ~Frame() override { Destroy(); }
};

// The number in that variable of the environment; `usual` if there is none.
uint64_t FromEnvironment(const char* name, uint64_t usual);

}  // namespace hosted
