#include "settings/inventory/FormatDocument.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "core/records/ListType.h"
#include "platform/system/utf8.h"
#include "settings/inventory/FieldShape.h"
#include "settings/inventory/RecordInventory.h"

namespace hx {
namespace {

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) text += part;
    return text;
}

std::string Code(std::string_view name) {
    return Joined({"`", name, "`"});
}
std::string Code(std::wstring_view name) {
    return Code(ToUtf8(name));
}

std::string Link(const RecordType& type) {
    const std::string name = ToUtf8(type.name);
    std::string anchor = name;
    for (char& letter : anchor) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return Joined({"[", name, "](#", anchor, ")"});
}

std::string IntegerWord(std::wstring_view word, int bits) {
    return Code(word) + ", " + std::to_string(bits) + " bits";
}

struct DefaultText {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const {
        char text[32];
        return {text, std::to_chars(text, text + sizeof text, value).ptr};
    }
    std::string operator()(const wchar_t* value) const { return Joined({"`\"", ToUtf8(value), "\"`"}); }
};

// A cell of a table, on one line.
std::string Cell(std::string_view text) {
    std::string cell;
    for (const char character : text) {
        if (character == '|') cell += '\\';
        cell += character;
    }
    return cell;
}

// Of a class that reads newer versions like the newest it knows, the children of that one are theirs, too.
std::string VersionsOf(const Field& field, const RecordType& owner) {
    std::string text = VersionsText(field.versions, owner.version.current);
    if (owner.reads_newer && text != "all" && field.versions.Contains(VersionSet::kLast))
        text += " and newer";
    return text;
}

class Sections {
public:
    std::string Take() { return std::move(m_text); }
    // Of the inventory first, then of the classes that only lie inside others.
    void WriteAll();

private:
    void WriteSection(const RecordType& type, const InventoryRow* row);
    void WriteRows(const RecordType& type, void* record, const std::string& path);
    void WriteRow(const Field& field, const RecordType& owner, void* record, const std::string& path);
    void WriteCells(std::initializer_list<std::string_view> cells);
    std::string TypeText(const Field& field, void* record);

    std::string m_text;
    std::vector<const RecordType*> m_inner;  // classes that are linked to and not in the inventory
};

void Sections::WriteAll() {
    for (const InventoryRow& row : RecordInventory()) WriteSection(*row.type, &row);
    for (size_t i = 0; i < m_inner.size(); ++i) WriteSection(*m_inner[i], nullptr);
}

void Sections::WriteSection(const RecordType& type, const InventoryRow* row) {
    m_text += Joined({"\n## ", ToUtf8(type.name), "\n\n", type.purpose, "\n\n"});
    if (row != nullptr && row->element.empty()) {
        m_text += Joined({"It is the root ", Code(row->root), " itself. "});
    } else if (row != nullptr) {
        m_text += Joined({"Usual element ", Code(row->element), ", root ", Code(row->root), ". "});
    }
    if (type.version.word == RecordVersion::kNone) {
        m_text += "It has no version.\n";
    } else {
        m_text += Joined({"`Version` is of type ", IntegerWord(WordOf(type.version), 32),
                          "; the current one is ", std::to_string(type.version.current), ".",
                          type.reads_newer ? " Newer ones are read, too." : "",
                          type.keeps_version ? " Written is what the version has that was read." : "", "\n"});
    }
    m_text += "\n| Child | Type | Unit | Default | Versions | Notes |\n|---|---|---|---|---|---|\n";
    WriteRows(type, type.make().get(), {});
}

void Sections::WriteRows(const RecordType& type, void* record, const std::string& path) {
    for (const Field& field : type.fields) {
        if (field.ops->read != nullptr) WriteRow(field, type, record, path);
    }
}

void Sections::WriteRow(const Field& field, const RecordType& owner, void* record, const std::string& path) {
    const std::string place = path + ToUtf8(field.child);
    const bool is_current = field.versions.Contains(owner.version.current);
    std::string notes;
    const auto note = [&](std::string_view text) { notes += Joined({notes.empty() ? "" : ", ", text}); };
    if (field.optional) note("optional");
    if (field.ops->write == nullptr || !(is_current || owner.keeps_version)) note("no longer written");
    const RecordType* const inner = ClassOf(field, record);
    const bool is_group = inner != nullptr && inner->make == nullptr;
    std::string_view unit = field.unit.empty() && is_group ? inner->purpose : field.unit;
    if (field.ops->former != nullptr) {
        note(Joined({"former name of ", Code(unit)}));
        unit = {};
    } else if (field.ops->at == nullptr) {
        note("not kept");
    }
    if (field.flag >= 0) note(Joined({"flag ", std::to_string(field.flag)}));
    WriteCells({Code(place), TypeText(field, record), unit, std::visit(DefaultText(), field.fallback),
                VersionsOf(field, owner), notes});

    if (inner == nullptr) return;
    if (inner->make != nullptr) {
        const bool is_listed = FindRecordClass(inner->name) != nullptr;
        if (!is_listed && std::ranges::find(m_inner, inner) == m_inner.end()) m_inner.push_back(inner);
        return;
    }
    // Its rows are fields of the same record.
    if (inner->version.word != RecordVersion::kNone) {
        WriteCells({Code(place + "/Version"), IntegerWord(WordOf(inner->version), 32), "", "", "all",
                    Joined({std::to_string(inner->version.current), " is written"})});
    }
    WriteRows(*inner, record, place + "/");
}

void Sections::WriteCells(std::initializer_list<std::string_view> cells) {
    for (const std::string_view cell : cells) m_text += Joined({"| ", Cell(cell), cell.empty() ? "" : " "});
    m_text += "|\n";
}

std::string Sections::TypeText(const Field& field, void* record) {
    const RecordType* const inner = ClassOf(field, record);
    const ListType* list = nullptr;
    if (field.ops->at != nullptr) {
        const FieldRef at = field.ops->at(record);
        if (const auto* const ref = std::get_if<ListRef>(&at)) list = ref->type;
    }
    // A record of which only a list is kept, or one that may be of a derived class.
    const InventoryRow* const named = FindRecordClass(field.ops->type);
    if (named != nullptr && (list == nullptr || named->type != inner)) return Link(*named->type);
    std::string text;
    if (inner != nullptr) {
        text = inner->make == nullptr ? "group" : Link(*inner);
    } else {
        // A byte tells its size.
        text = field.ops->bits <= 8 ? Code(field.ops->type) : IntegerWord(field.ops->type, field.ops->bits);
    }
    // Other values that are kept as a list go by a word of their own.
    const bool is_list = list != nullptr && (inner != nullptr || list->word == field.ops->type);
    return is_list ? Joined({"list of ", text}) : text;
}

}  // namespace

std::string VersionsText(VersionSet versions, uint32_t newest) {
    std::string text;
    bool all = true;
    for (uint32_t first = 0; first <= newest; ++first) {
        if (!versions.Contains(first)) {
            all = false;
            continue;
        }
        uint32_t last = first;
        while (last < newest && versions.Contains(last + 1)) ++last;
        text += Joined({text.empty() ? "" : ", ", std::to_string(first)});
        if (last > first) text += Joined({last == first + 1 ? ", " : " to ", std::to_string(last)});
        first = last;
    }
    if (all) return "all";
    return text.empty() ? "none" : text;
}

std::string FormatDocument() {
    Sections sections;
    sections.WriteAll();
    return std::string(FormatIntroduction()) + sections.Take();
}

}  // namespace hx
