// hxctl inspect: what a document holds, or one record of it, field by field.
#include "apps/hxctl/account.h"
#include "apps/hxctl/command.h"
#include "apps/hxctl/record_json.h"
#include "apps/hxctl/record_reading.h"
#include "apps/hxctl/record_search.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

Outcome InspectUnknown(const std::string& file, std::wstring text, bool json) {
    const Account account = AccountOf(file, std::move(text));
    std::string output = json ? account.content.dump(2) + "\n" : AccountText(account.content);
    if (account.refusal.empty()) return {kDone, std::move(output), {}};
    return Refused(file + ": " + account.refusal, std::move(output));
}

struct Found {
    std::wstring element;
    RecordReading reading;
};

// Without an element's name, of the one that is the record by its children.
Found ReadFound(std::wstring text, const hx::InventoryRow& row, std::wstring_view element,
                const void* defaults = nullptr) {
    std::wstring name = element.empty() ? FindElementOf(row, text) : std::wstring(element);
    RecordReading reading = ReadRecord(std::move(text), row, name, defaults);
    return {std::move(name), std::move(reading)};
}

// What became of the record in `file`. A long document alone is not made a far longer JSON as well.
Outcome Answered(const InspectRequest& request, const hx::InventoryRow& row, const RecordReading& reading,
                 const std::string& file, std::string rewritten, bool json) {
    Outcome outcome;
    if (!reading.read) outcome = Refused(file + ": not read as " + request.record);
    if (request.rewrite && !json) {
        outcome.output = std::move(rewritten);
        return outcome;
    }
    Json answer = {{"read", reading.read}};
    answer["fields"] = FieldsOf(*row.type, reading.record.get());
    answer["valid"] = ValidFieldsOf(*row.type, reading.record.get());
    answer["error"] = {{"codes", hx::ToUtf8(reading.error_codes)}};
    if (request.rewrite) answer["document"] = std::move(rewritten);
    outcome.output = answer.dump(2) + "\n";
    return outcome;
}

}  // namespace

Outcome RunInspect(const InspectRequest& request, bool json) {
    const auto class_name = hx::FromUtf8(request.record);
    const hx::InventoryRow* const row = class_name ? hx::FindRecordClass(*class_name) : nullptr;
    if (row == nullptr && !request.record.empty()) {
        return {kUsage, {}, "no record class \"" + request.record + "\""};
    }
    const auto element = hx::FromUtf8(request.element);
    if (!element) return {kUsage, {}, "the element's name is no UTF-8"};
    std::string reason;
    auto text = ReadTextFile(request.file, reason);
    if (!text) return Refused(reason);
    if (row == nullptr) return InspectUnknown(request.file, std::move(*text), json);
    RecordReading defaults;
    if (!request.defaults.empty()) {
        auto defaults_text = ReadTextFile(request.defaults, reason);
        if (!defaults_text) return Refused(reason);
        defaults = ReadFound(std::move(*defaults_text), *row, *element).reading;
        if (!defaults.read) return Answered(request, *row, defaults, request.defaults, {}, json);
    }
    const Found found = ReadFound(std::move(*text), *row, *element, defaults.record.get());
    const std::string rewritten =
        request.rewrite ? hx::ToUtf8(WriteRecord(found.reading.record.get(), *row, found.element))
                        : std::string();
    return Answered(request, *row, found.reading, request.file, rewritten, json);
}

}  // namespace hxctl
