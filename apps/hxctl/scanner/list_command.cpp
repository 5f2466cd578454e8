// hxctl scanner list and properties: what there is to choose from, and what a driver reports.
#include "apps/hxctl/record_reading.h"
#include "apps/hxctl/scanner/desk.h"
#include "apps/hxctl/scanner/failed_call.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using GetTexts = HRESULT (IHXSimulator::*)(SAFEARRAY**);

struct Choice {
    const char* key;
    const char* heading;
    const char* operation;
    GetTexts get;
};
constexpr Choice kChoices[] = {
    {"models", "Models", "GetModels", &IHXSimulator::GetModels},
    {"surfaces", "Surfaces", "GetSurfaces", &IHXSimulator::GetSurfaces},
    {"operations", "Operations that can fail", "GetOperations", &IHXSimulator::GetOperations},
};

}  // namespace

Outcome RunScannerList(bool json) {
    return AtDesk({}, json, [](Desk& desk, DeskAnswer& answer) {
        for (const Choice& choice : kChoices) {
            hx::SafeArray names;
            CheckCall(choice.operation, (desk.Simulator().*choice.get)(names.put()));
            answer.text += std::string(choice.heading) + ":\n";
            Json& list = answer.json[choice.key] = Json::array();
            for (const std::wstring& name : TextsOf(names)) {
                list.push_back(hx::ToUtf8(name));
                answer.text += "  " + hx::ToUtf8(name) + "\n";
            }
        }
    });
}

Outcome RunScannerProperties(const ScannerRequest& request, bool document, bool json) {
    return AtDesk(request, json, [document](Desk& desk, DeskAnswer& answer) {
        answer.json["model"] = TextOf(desk.Model());
        answer.is_document = true;
        if (document) {
            answer.text = hx::ToUtf8(desk.PropertiesText());
            answer.json["document"] = answer.text;
            return;
        }
        const hx::InventoryRow& row = *hx::FindRecordClass(L"MPropertiesHelper");
        const RecordReading reading = ReadRecord(desk.PropertiesText(), row, row.element);
        if (!reading.read) {
            throw FailedCall("the properties document is not read: " + hx::ToUtf8(reading.error_codes));
        }
        answer.json["properties"] = FieldsOf(*row.type, reading.record.get());
        answer.text = answer.json.dump(2) + "\n";
    });
}

}  // namespace hxctl
