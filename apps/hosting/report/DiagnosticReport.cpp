#include "apps/hosting/report/DiagnosticReport.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <span>

#include "apps/hosting/report/ModuleLog.h"
#include "apps/hosting/report/SerialNumbers.h"
#include "platform/com/loader.h"
#include "platform/module/module.h"
#include "platform/system/clock.h"
#include "platform/system/one_line.h"
#include "platform/system/platform_version.h"
#include "platform/system/system_description.h"
#include "platform/system/utf8.h"
#include "platform/ui/renderer.h"
#include "platform/ui/services.h"

namespace hosting {
namespace {

// Controls of the page that show a serial number, and those that show a date or a version, whose digits are
// their own.
constexpr uint32_t kSerialNumbers[] = {236};
constexpr uint32_t kDatesAndVersions[] = {231, 234, 242, 244};
constexpr size_t kMostErrors = 20;
constexpr size_t kMostCharacters = 2000;  // of one error

bool IsOneOf(std::span<const uint32_t> ids, uint32_t id) {
    return std::ranges::find(ids, id) != ids.end();
}

// "2024-01-31T23:59:59Z"
std::wstring UtcTime(int64_t wall_us) {
    using namespace std::chrono;
    const auto now = floor<seconds>(sys_time<microseconds>(microseconds(wall_us)));
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(now - day);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return std::wstring(text, text + std::char_traits<char>::length(text));
}

// "31-01-2024 at 23:59:59", as a log has it. A log may hold bytes of other programs.
bool IsLogTime(std::wstring_view text) {
    constexpr std::wstring_view kForm = L"00-00-0000 at 00:00:00";
    return std::ranges::equal(text, kForm, [](wchar_t character, wchar_t form) {
        return form == L'0' ? character >= L'0' && character <= L'9' : character == form;
    });
}

std::wstring Shortened(std::wstring text) {
    if (text.size() <= kMostCharacters) return text;
    text.resize(kMostCharacters);
    return text + L"\u2026";
}

struct Library {
    std::wstring name;  // that of its log, too
    std::wstring version;
};

// That a class is in, once it is loaded.
Library LibraryOf(const wchar_t* prog_id) {
    CLSID clsid;
    if (FAILED(CLSIDFromProgID(prog_id, &clsid))) return {};
    const auto file = hx::ClassLookup()->LibraryOf(clsid);
    if (!file) return {};
    Library library{std::filesystem::path(*file).stem().wstring(), {}};
    if (const hx::ModuleHandle module = hx::LoadedResourceModule(*file)) {
        library.version = hx::VersionOf(module->GetResources()).product_version;
    }
    return library;
}

class Maker {
public:
    Maker(const ReportRequest& request, const ReportWords& words)
        : m_request(request), m_words(words), m_serial_numbers(words(ReportWord::left_out)) {
        if (request.serial_numbers) return;
        for (const std::wstring& number : request.known_serial_numbers) m_serial_numbers.Hide(number);
    }

    DiagnosticReport Make() {
        AddReport();
        AddPage();
        if (!m_request.serial_numbers) MaskPage();
        const Library library = LibraryOf(m_request.prog_id);
        AddSoftware(library);
        AddSystem();
        AddErrors(library);
        return std::move(m_report);
    }

private:
    void Begin(const char* section, std::wstring heading) {
        m_section = section;
        m_heading = std::move(heading);
    }
    void Add(std::string name, std::wstring caption, std::wstring_view value) {
        m_report.rows.push_back(
            {m_section, std::move(name), m_heading, std::move(caption), hx::OneLine(value)});
    }
    void Add(const char* name, ReportWord caption, std::wstring_view value) {
        Add(name, m_words(caption), value);
    }

    void AddReport() {
        Begin("report", m_words(ReportWord::title));
        Add("time", ReportWord::time, UtcTime(hx::SystemClock().WallMicroseconds()));
    }

    // Frames, and in them texts: one that names a value, and the value.
    void AddPage() {
        Begin("page", {});
        const hx::ui::StaticText* label = nullptr;
        for (const hx::ui::Control* const control : m_request.page.Controls()) {
            const auto* const text = dynamic_cast<const hx::ui::StaticText*>(control);
            if (!text) continue;
            if (text->IsGroup()) {
                Begin("page", hx::ui::WithoutMnemonic(text->Text()));
                label = nullptr;
            } else if (!label) {
                label = text;
            } else {
                AddValue(*label, *text);
                label = nullptr;
            }
        }
    }
    void AddValue(const hx::ui::StaticText& label, const hx::ui::StaticText& value) {
        const bool is_hidden = !m_request.serial_numbers && IsOneOf(kSerialNumbers, value.Id());
        const std::wstring shown = hx::ui::WithoutMnemonic(value.Text());
        if (is_hidden) {
            m_serial_numbers.HideShown(shown);
        } else {
            m_serial_numbers.HideIn(shown);
        }
        if (!value.IsVisible()) return;
        Add(std::to_string(value.Id()), hx::ui::WithoutMnemonic(label.Text()),
            is_hidden ? m_words(ReportWord::left_out) : shown);
    }
    // Once all of the page is known: the names of scanners have theirs in them.
    void MaskPage() {
        for (ReportRow& row : m_report.rows) {
            if (row.section != "page") continue;
            const auto id = static_cast<uint32_t>(std::stoul(row.name));
            if (IsOneOf(kSerialNumbers, id) || IsOneOf(kDatesAndVersions, id)) continue;
            row.value = m_serial_numbers.Masked(row.value);
        }
    }

    void AddSoftware(const Library& library) {
        Begin("software", m_words(ReportWord::software));
        if (!library.version.empty()) Add("library", library.name + L":", library.version);
        Add("platform", ReportWord::platform, hx::PlatformVersion());
        if (const auto* const renderer = hx::ui::CurrentRenderer()) {
            Add("renderer", ReportWord::renderer, renderer->Name());
        }
    }

    void AddSystem() {
        const hx::SystemDescription system = hx::DescribeSystem();
        Begin("system", m_words(ReportWord::system));
        Add("operatingSystem", ReportWord::operating_system,
            system.product + L" " + system.version + L", " + system.service_pack);
        Add("architecture", ReportWord::architecture, system.architecture);
        Add("processors", ReportWord::processors, system.processors);
        Add("locale", ReportWord::language, hx::FromDamagedUtf8(m_request.locale));
    }

    void AddErrors(const Library& library) {
        Begin("errors", m_words(ReportWord::errors));
        const std::vector<LoggedError> errors = ModuleLog(library.name).LastErrors(kMostErrors);
        if (errors.empty()) return Add({}, std::wstring(), m_words(ReportWord::none));
        // Whoever knows no number cannot find it in them.
        if (!m_request.serial_numbers && m_serial_numbers.IsEmpty()) {
            return Add(kErrorsLeftOut, std::wstring(), m_words(ReportWord::errors_left_out));
        }
        for (const LoggedError& error : errors) {
            std::wstring time = Logged(error.time);
            std::string name = hx::ToUtf8(time);
            Add(std::move(name), std::move(time) + L":", Logged(error.text));
        }
    }
    // Cut last, so that no number is cut before it is found.
    std::wstring Logged(const std::string& bytes) const {
        std::wstring text = hx::OneLine(hx::FromDamagedUtf8(bytes));
        if (!m_request.serial_numbers && !IsLogTime(text)) text = m_serial_numbers.Masked(text);
        return Shortened(std::move(text));
    }

    const ReportRequest& m_request;
    const ReportWords& m_words;
    SerialNumbers m_serial_numbers;
    DiagnosticReport m_report;
    std::string m_section;
    std::wstring m_heading;
};

}  // namespace

std::wstring DiagnosticReport::Text() const {
    std::wstring text;
    const std::wstring* heading = nullptr;
    for (const ReportRow& row : rows) {
        if (!heading || *heading != row.heading) {
            text += (heading ? L"\n" : L"") + row.heading + L"\n";
            heading = &row.heading;
        }
        text += row.caption + (row.caption.empty() ? L"" : L" ") + row.value + L"\n";
    }
    return text;
}

DiagnosticReport MakeReport(const ReportRequest& request, const ReportWords& words) {
    return Maker(request, words).Make();
}

}  // namespace hosting
