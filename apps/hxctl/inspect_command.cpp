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

}  // namespace

Outcome RunInspect(const InspectRequest& request, bool json) {
    const auto class_name = hx::FromUtf8(request.record);
    const hx::InventoryRow* const row = class_name ? hx::FindRecordClass(*class_name) : nullptr;
    if (row == nullptr && !request.record.empty()) {
        return {kUsage, {}, "no record class \"" + request.record + "\""};
    }
    auto element = hx::FromUtf8(request.element);
    if (!element) return {kUsage, {}, "the element's name is no UTF-8"};
    std::string reason;
    auto text = ReadTextFile(request.file, reason);
    if (!text) return Refused(reason);
    if (row == nullptr) return InspectUnknown(request.file, std::move(*text), json);
    std::optional<std::wstring> defaults;
    if (!request.defaults.empty()) {
        defaults = ReadTextFile(request.defaults, reason);
        if (!defaults) return Refused(reason);
    }
    if (element->empty()) element = FindElementOf(*row, *text);

    const RecordReading reading =
        ReadRecord(std::move(*text), *row, *element, defaults ? &*defaults : nullptr);
    const std::string rewritten =
        request.rewrite ? hx::ToUtf8(WriteRecord(reading.record.get(), *row, *element)) : std::string();
    Outcome outcome;
    if (!reading.read) outcome = Refused(request.file + ": not read as " + request.record);
    Json answer = {{"read", reading.read},
                   {"fields", FieldsOf(*row->type, reading.record.get())},
                   {"valid", ValidFieldsOf(*row->type, reading.record.get())},
                   {"error", {{"codes", hx::ToUtf8(reading.error_codes)}}}};
    if (request.rewrite && json) answer["document"] = rewritten;
    outcome.output = request.rewrite && !json ? rewritten : answer.dump(2) + "\n";
    return outcome;
}

}  // namespace hxctl
