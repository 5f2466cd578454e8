// hxctl inspect: reads one record from a document and shows every field of it.
#include "apps/hxctl/command.h"
#include "apps/hxctl/record_json.h"
#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/records/InGroup.h"
#include "platform/system/utf8.h"
#include "settings/inventory/RecordInventory.h"

namespace hxctl {
namespace {

struct Inspection {
    bool read = false;
    Json fields;
    Json valid;
    std::wstring error_codes;
    std::wstring rewritten;
};

bool ReadRecord(std::wstring text, const hx::InventoryRow& row, std::wstring_view element, void* record,
                const void* defaults) {
    hx::MInFilerTaggedXml reader(std::move(text), row.root);
    hx::MFilerTaggedPair filer(reader);
    // Not there, it leaves a record found that stands in the root.
    if (!row.group.empty()) filer.BeginGroup(row.group);
    return row.type->read(record, filer, element, defaults);
}

Inspection Inspect(std::wstring text, const hx::InventoryRow& row, std::wstring_view element,
                   const std::wstring* defaults_text) {
    Inspection inspection;
    const auto record = row.type->make();
    try {
        const auto defaults = row.type->make();
        if (defaults_text != nullptr) {
            ReadRecord(*defaults_text, row, element, defaults.get(), row.type->make().get());
        }
        inspection.read = ReadRecord(std::move(text), row, element, record.get(), defaults.get());
    } catch (const hx::MException& exception) {
        inspection.error_codes = hx::ErrorCodesText(exception);
    }
    inspection.fields = FieldsOf(*row.type, record.get());
    inspection.valid = ValidFieldsOf(*row.type, record.get());
    hx::MOutFilerTaggedXml writer(row.root);
    hx::MFilerTaggedPair filer(writer);
    const auto write = [&] { return row.type->write(record.get(), filer, element); };
    const bool written = row.group.empty() ? write() : hx::InGroup(filer, row.group, write);
    if (written) inspection.rewritten = writer.TakeText();
    return inspection;
}

}  // namespace

Outcome RunInspect(const InspectRequest& request, bool json) {
    const auto class_name = hx::FromUtf8(request.record);
    const hx::InventoryRow* const row = class_name ? hx::FindRecordClass(*class_name) : nullptr;
    if (row == nullptr) return {kUsage, {}, "no record class \"" + request.record + "\""};
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

    const Inspection inspection = Inspect(std::move(*text), *row, *element, defaults ? &*defaults : nullptr);
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
