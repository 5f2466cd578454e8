#include "apps/hxctl/record_reading.h"

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/records/InGroup.h"

namespace hxctl {
namespace {

bool Read(std::wstring text, const hx::InventoryRow& row, std::wstring_view element, void* record,
          const void* defaults) {
    hx::MInFilerTaggedXml reader(std::move(text), row.root);
    hx::MFilerTaggedPair filer(reader);
    // Not there, it leaves a record found that stands in the root.
    if (!row.group.empty()) filer.BeginGroup(row.group);
    return row.type->read(record, filer, element, defaults);
}

}  // namespace

RecordReading ReadRecord(std::wstring text, const hx::InventoryRow& row, std::wstring_view element,
                         const void* defaults) {
    RecordReading reading{false, {}, row.type->make()};
    try {
        const auto fresh = row.type->make();
        reading.read = Read(std::move(text), row, element, reading.record.get(),
                            defaults != nullptr ? defaults : fresh.get());
    } catch (const hx::MException& exception) {
        reading.error_codes = hx::ErrorCodesText(exception);
    }
    return reading;
}

std::wstring WriteRecord(const void* record, const hx::InventoryRow& row, std::wstring_view element) {
    hx::MOutFilerTaggedXml writer(row.root);
    hx::MFilerTaggedPair filer(writer);
    const auto write = [&] { return row.type->write(record, filer, element); };
    const bool written = row.group.empty() ? write() : hx::InGroup(filer, row.group, write);
    return written ? writer.TakeText() : std::wstring();
}

}  // namespace hxctl
