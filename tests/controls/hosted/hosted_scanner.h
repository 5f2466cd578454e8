// A simulated scanner with some profiles and a host's frame for the measurement page, all as a host has them:
// by name, through their interfaces. What is seen of the page are its controls, and what the scanner stores.
#pragma once

#include <array>
#include <map>
#include <string>

#include "apps/hosting/HostedPage.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "hxapi/HXSimulatorClasses.h"
#include "hxapi/ICalibrationHandle.h"
#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiInternal.h"
#include "hxapi/IHXSimulator.h"
#include "tests/platform/temporary_folder.h"

namespace hosted {

inline constexpr uint32_t kList = 6000;
inline constexpr uint32_t kSliders[] = {207, 204, 211, 218, 214};
inline constexpr uint32_t kEdits[] = {210, 206, 212, 219, 217};  // of the sliders
inline constexpr uint32_t kBoxes[] = {224, 225, 253};
inline constexpr uint32_t kGainList = 286;

// Of a profile: the sliders', the boxes', the gain; 0 for one that is not to be seen.
struct Values {
    std::array<double, 5> numbers{};  // the exposure in hundredths of a percent
    std::array<bool, 3> flags{};
    uint32_t gain = 0;

    bool operator==(const Values&) const = default;
    // As the page sees it: exposures drift.
    bool IsSame(const Values& other) const;
};

struct Profile {
    std::string display_name;
    Values values;
};

class Scanner {
public:
    // Beside its own profiles it has others named Own 1, Own 2 and so on.
    explicit Scanner(const std::string& model, size_t own_profiles = 3);

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
    const TemporaryFolder m_folder;
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

// A page that the host has shown in the usual order, with a profile to select. False if something failed.
bool OpenPage(hosting::HostedPage& page, const Frame& frame, const Scanner& scanner,
              const std::wstring& profile);
// A new one, with no window yet.
bool MakePage(hosting::HostedPage& page);

Values Shown(const hx::ui::Dialog& page);

// The number in that variable of the environment; `usual` if there is none.
uint64_t FromEnvironment(const char* name, uint64_t usual);

}  // namespace hosted
