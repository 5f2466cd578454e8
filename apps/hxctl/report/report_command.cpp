#include "apps/hxctl/report/report_command.h"

#include <iterator>

#include "apps/hosting/HostedPage.h"
#include "apps/hosting/report/DiagnosticReport.h"
#include "apps/hosting/report/DriverSerialNumbers.h"
#include "apps/hxctl/page/host_answer.h"
#include "apps/hxctl/renderer_in_use.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/system/locale_data.h"
#include "platform/system/utf8.h"
#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/script.h"

namespace hxctl {
namespace {

using hosting::ReportWord;

constexpr const wchar_t* kWords[] = {
    L"Diagnostics report",
    L"Time:",
    L"(left out)",
    L"none",
    L"Software",
    L"Platform library:",
    L"Windows are shown by:",
    L"System",
    L"Operating system:",
    L"Architecture:",
    L"Processors:",
    L"Language:",
    L"Last errors",
    L"left out: no serial number is known that could be hidden in them; --serials tells them as they are",
};
static_assert(std::size(kWords) == static_cast<size_t>(ReportWord::count_));

std::wstring WordOf(ReportWord word) {
    return kWords[static_cast<size_t>(word)];
}

// By section: the page's values and the errors in order, the others by name.
Json JsonOf(const hosting::DiagnosticReport& report) {
    Json json = {{"page", Json::array()}, {"errors", Json::array()}};
    for (const hosting::ReportRow& row : report.rows) {
        const std::string value = hx::ToUtf8(row.value);
        if (row.section == "page") {
            json["page"].push_back({{"id", std::stoi(row.name)},
                                    {"group", hx::ToUtf8(row.heading)},
                                    {"label", hx::ToUtf8(row.caption)},
                                    {"value", value}});
        } else if (row.section != "errors") {
            json[row.section][row.name] = value;
        } else if (row.name == hosting::kErrorsLeftOut) {
            json["errorsLeftOut"] = value;
        } else if (!row.name.empty()) {
            json["errors"].push_back({{"time", row.name}, {"text", value}});
        }
    }
    return json;
}

class Frame final : public hx::ui::Window {
public:
    Frame() { Create(hx::ui::WindowKind::frame, nullptr, {0, 0, 640, 480}); }
    ~Frame() override { Destroy(); }
};

void Report(const ReportOptions& options, Desk& desk, DeskAnswer& answer) {
    IHXSimulator& simulator = desk.Simulator();
    CheckCall("SetLocale", simulator.SetLocale(BstrOf(options.locale).get()));
    CheckCall("SetConnectionState",
              simulator.SetConnectionState(options.disconnected ? 0 : options.state, FALSE));
    hx::ui::Script script;
    Frame frame;
    hosting::HostedPage page;
    CheckAnswer("CoCreateInstance", page.Create(kProgIdHXDiagnosticsCtrl));
    CheckAnswer("the window", page.Open(frame, frame.Bounds(), hx::LcidOf(options.locale).value()));
    CheckAnswer("OnSelected", page.Select());
    CheckAnswer("SetHXApi", page.SetApi(&simulator));
    hx::ui::CurrentRenderer()->Pump();
    for (const hx::ui::Script::Box& box : script.TakeBoxes()) {
        desk.Notice("the page said: " + hx::ToUtf8(box.text));
    }
    const hx::ui::Dialog* const dialog = page.Dialog();
    if (!dialog) throw FailedCall("the page has no window");
    const hosting::DiagnosticReport report =
        hosting::MakeReport({*dialog, kProgIdHXDiagnosticsCtrl, options.locale, options.serial_numbers,
                             hosting::DriverSerialNumbers(&simulator, desk.DriverName())},
                            &WordOf);
    answer.json = JsonOf(report);
    answer.text = hx::ToUtf8(report.Text());
}

}  // namespace

Outcome RunReport(const ReportOptions& options, bool json) {
    if (!hx::LcidOf(options.locale)) return {kUsage, {}, "no locale \"" + options.locale + "\""};
    const RendererInUse in_use(hx::ui::HeadlessRenderer::Make());
    return AtDesk(options.scanner, json,
                  [&](Desk& desk, DeskAnswer& answer) { Report(options, desk, answer); });
}

}  // namespace hxctl
