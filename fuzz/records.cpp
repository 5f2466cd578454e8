// Records of every class from arbitrary documents, by the strict reader and by the optional one.
#include <algorithm>

#include "core/errors/MException.h"
#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/records/InGroup.h"
#include "fuzz/fuzz_target.h"
#include "settings/inventory/RecordInventory.h"
#include "settings/measurement/MScanningMeasurementFacetSettings.h"

namespace fuzz {
namespace {

using hx::InventoryRow;

bool Read(const InventoryRow& row, hx::IInFilerTagged& reader, void* record) {
    hx::MFilerTaggedPair filer(reader);
    if (!row.group.empty()) filer.BeginGroup(row.group);
    try {
        return row.type->read(record, filer, row.element, row.type->make().get());
    } catch (const hx::MException&) {
        return false;
    }
}

std::wstring Write(const InventoryRow& row, const void* record) {
    hx::MOutFilerTaggedXml writer(row.root);
    hx::MFilerTaggedPair filer(writer);
    const auto write = [&] { return row.type->write(record, filer, row.element); };
    const bool written = row.group.empty() ? write() : hx::InGroup(filer, row.group, write);
    return written ? writer.TakeText() : std::wstring();
}

// Settings of a device are written under the version of a catalogue, which nobody finds in them.
bool ReadsBack(const InventoryRow& row, const void* record) {
    using Facet = hx::MScanningMeasurementFacetSettings;
    return row.type != &Facet::kType || static_cast<const Facet*>(record)->Version != Facet::kDeviceVersion;
}

const InventoryRow& RowOf(std::wstring_view name) {
    if (const InventoryRow* const row = hx::FindRecordClass(name)) return *row;
    const auto rows = hx::RecordInventory();
    return rows[(name.empty() ? 0 : static_cast<size_t>(name.front())) % rows.size()];
}

}  // namespace

void Records(Input input) {
    // The first line: which reader ("o": the optional one), and the class; any other name stands for some
    // class, too.
    const std::wstring text = input.Text(SIZE_MAX);
    const size_t line = std::min(text.find(L'\n'), text.size());
    const bool optional = text.starts_with(L'o');
    const InventoryRow& row = RowOf(std::wstring_view(text).substr(0, line).substr(line == 0 ? 0 : 1));
    std::wstring document = text.substr(std::min(line + 1, text.size()));
    const auto record = row.type->make();
    if (optional) {
        hx::MInFilerTaggedOptionalXml reader(std::move(document), row.root);
        Read(row, reader, record.get());
        Write(row, record.get());
        return;
    }
    hx::MInFilerTaggedXml reader(std::move(document), row.root);
    const bool read = Read(row, reader, record.get());
    const std::wstring written = Write(row, record.get());
    if (!read || written.empty() || !ReadsBack(row, record.get())) return;
    hx::MInFilerTaggedXml written_reader(written, row.root);
    const auto again = row.type->make();
    Require(Read(row, written_reader, again.get()), "what is written of what was read can be read");
    // The first text may have numbers that 16 digits take across an edge: the greatest double becomes infinity.
    const std::wstring settled = Write(row, again.get());
    hx::MInFilerTaggedXml settled_reader(settled, row.root);
    const auto last = row.type->make();
    Require(Read(row, settled_reader, last.get()) && Write(row, last.get()) == settled, "and stays the same");
}

}  // namespace fuzz
