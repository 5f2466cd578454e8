// hxctl inspect: reads one record from a document and shows every field of it. One row per record class.
#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "apps/hxctl/command.h"
#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "platform/system/utf8.h"
#include "settings/MHXConnectionSettings.h"

namespace hxctl {
namespace {

using Json = nlohmann::ordered_json;

struct Inspection {
    bool read = false;
    Json fields;
    Json valid = Json::array();  // names of the fields whose validity flag is set
    std::wstring error_codes;
    std::wstring rewritten;
};

Json FieldsOf(const hx::MHXConnectionSettings& record) {
    return {{"ServerIP", hx::ToUtf8(record.ServerIP)},
            {"IsProxy", record.IsProxy},
            {"WiFiConnection", record.WiFiConnection}};
}

template <class Record>
bool ReadRecord(std::wstring text, std::wstring_view element, const Record& defaults, Record& record) {
    hx::MInFilerTaggedXml reader(std::move(text), hx::kTaggedXmlRoot);
    hx::MFilerTaggedPair filer(reader);
    return record.ReadTagged(filer, element, defaults);
}

template <class Record>
Inspection Inspect(std::wstring text, std::wstring_view element, const std::wstring* defaults_text) {
    Inspection inspection;
    Record record;
    try {
        Record defaults;
        if (defaults_text != nullptr) ReadRecord(*defaults_text, element, Record(), defaults);
        inspection.read = ReadRecord(std::move(text), element, defaults, record);
    } catch (const hx::MException& exception) {
        inspection.error_codes = hx::ErrorCodesText(exception);
    }
    inspection.fields = FieldsOf(record);
    hx::MOutFilerTaggedXml writer(hx::kTaggedXmlRoot);
    hx::MFilerTaggedPair filer(writer);
    if (record.WriteTagged(filer, element)) inspection.rewritten = writer.TakeText();
    return inspection;
}

struct RecordRow {
    std::string_view name;
    std::wstring_view element;
    Inspection (*inspect)(std::wstring text, std::wstring_view element, const std::wstring* defaults_text);
};

constexpr RecordRow kRecords[] = {
    {"MHXConnectionSettings", hx::MHXConnectionSettings::kElement, &Inspect<hx::MHXConnectionSettings>},
};

}  // namespace

Outcome RunInspect(const InspectRequest& request, bool json) {
    const auto* const row = std::ranges::find(kRecords, request.record, &RecordRow::name);
    if (row == std::end(kRecords)) return {kUsage, {}, "no record class \"" + request.record + "\""};
    const auto element = request.element.empty() ? std::wstring(row->element) : hx::FromUtf8(request.element);
    if (!element) return {kUsage, {}, "the element's name is no UTF-8"};
    std::string reason;
    auto text = ReadTextFile(request.file, reason);
    if (!text) return Refused(reason);
    std::optional<std::wstring> defaults;
    if (!request.defaults.empty()) {
        defaults = ReadTextFile(request.defaults, reason);
        if (!defaults) return Refused(reason);
    }

    const Inspection inspection = row->inspect(std::move(*text), *element, defaults ? &*defaults : nullptr);
    Outcome outcome;
    if (!inspection.read) outcome = Refused(request.file + ": not read as " + request.record);
    Json answer = {{"read", inspection.read},
                   {"fields", inspection.fields},
                   {"valid", inspection.valid},
                   {"error", {{"codes", hx::ToUtf8(inspection.error_codes)}}}};
    if (request.rewrite && json) answer["document"] = hx::ToUtf8(inspection.rewritten);
    outcome.output = request.rewrite && !json ? hx::ToUtf8(inspection.rewritten) : answer.dump(2) + "\n";
    return outcome;
}

}  // namespace hxctl
