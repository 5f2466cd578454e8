#include "apps/hosting/report/DiagnosticReport.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>

#include "apps/hosting/report/ModuleLog.h"
#include "apps/hosting/report/SerialNumbers.h"
#include "platform/com/loader.h"
#include "platform/module/module.h"
#include "platform/system/clock.h"
#include "platform/system/platform_version.h"
#include "platform/system/system_description.h"
#include "platform/system/utf8.h"
#include "platform/ui/renderer.h"
#include "platform/ui/services.h"

namespace hosting {
namespace {

// Controls of the page that show a serial number.
constexpr uint32_t kSerialNumbers[] = {236};
constexpr size_t kMostErrors = 20;

bool ShowsSerialNumber(uint32_t id) {
    return std::ranges::find(kSerialNumbers, id) != std::end(kSerialNumbers);
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

// A log may hold bytes of other programs.
std::wstring Decoded(std::string_view bytes) {
    constexpr wchar_t kReplacement = 0xFFFD;
    std::wstring text;
    while (true) {
        size_t bad = 0;
        if (const auto rest = hx::FromUtf8(bytes, &bad)) return text + *rest;
        text += hx::FromUtf8(bytes.substr(0, bad)).value_or(std::wstring()) + kReplacement;
        bytes.remove_prefix(bad + 1);
    }
}

std::wstring OneLine(std::wstring_view text) {
    std::wstring line;
    for (const wchar_t character : text) {
        const bool is_blank = character <= L' ';
        if (is_blank && (line.empty() || line.back() == L' ')) continue;
        line += is_blank ? L' ' : character;
    }
    if (!line.empty() && line.back() == L' ') line.pop_back();
    return line;
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
        const Library library = LibraryOf(m_request.prog_id);
        AddSoftware(library);
        AddSystem();
        AddErrors(library);
        Mask();
        return std::move(m_report);
    }

private:
    void Begin(const char* section, std::wstring heading) {
        m_section = section;
        m_heading = std::move(heading);
    }
    void Add(std::string name, std::wstring caption, std::wstring_view value) {
        m_report.rows.push_back({m_section, std::move(name), m_heading, std::move(caption), OneLine(value)});
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
        const bool is_hidden = !m_request.serial_numbers && ShowsSerialNumber(value.Id());
        if (is_hidden) m_serial_numbers.Hide(value.Text());
        if (!value.IsVisible()) return;
        Add(std::to_string(value.Id()), hx::ui::WithoutMnemonic(label.Text()),
            is_hidden ? m_words(ReportWord::left_out) : value.Text());
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
        Add("locale", ReportWord::language, Decoded(m_request.locale));
    }

    void AddErrors(const Library& library) {
        Begin("errors", m_words(ReportWord::errors));
        const std::vector<LoggedError> errors = ModuleLog(library.name).LastErrors(kMostErrors);
        for (const LoggedError& error : errors) {
            Add(error.time, Decoded(error.time) + L":", Decoded(error.text));
        }
        if (errors.empty()) Add({}, std::wstring(), m_words(ReportWord::none));
    }

    // The names of scanners have theirs in them, and so may what was logged. The time of the report is told.
    void Mask() {
        for (ReportRow& row : m_report.rows) {
            if (row.section == "report") continue;
            row.value = m_serial_numbers.Masked(std::move(row.value));
        }
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
