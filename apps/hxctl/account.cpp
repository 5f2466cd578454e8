#include "apps/hxctl/account.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "apps/hxctl/document_element.h"
#include "apps/hxctl/record_account.h"
#include "apps/hxctl/record_reading.h"
#include "core/errors/MException.h"
#include "core/filer/TaggedXml.h"
#include "core/records/RecordFields.h"
#include "platform/system/utf8.h"
#include "settings/inventory/RecordRecognition.h"

namespace hxctl {
namespace {

// Of a class, so many records are told in full, and so many more of those that were not read.
constexpr size_t kToldInFull = 3;
// Of one parent, so many values and unknown elements.
constexpr size_t kToldOfOthers = 20;
// Records lie below the root, or in elements that hold records of one kind; not much deeper.
constexpr int kDeepest = 6;

// Tells of each record in a document, in its order.
class RecordFinder {
public:
    RecordFinder(hx::MXmlDocument& document, std::wstring root)
        : m_document(document), m_root(std::move(root)) {}

    // What the document holds.
    Json TellAll() {
        std::vector<Json> told;
        TellRoot(told);
        TellChildren({}, 0, told);
        return told;
    }
    Json Classes() const;
    std::string Refusal() const;

private:
    struct Count {
        const hx::RecordType* type;
        size_t records = 0;
        size_t read = 0;
        size_t shown = 0;
        size_t shown_refused = 0;
    };

    void TellRoot(std::vector<Json>& told);
    bool TellChildren(const std::string& path, int depth, std::vector<Json>& told);
    bool TellChild(const std::string& path, int depth, std::vector<Json>& told, std::vector<Json>& others);
    void TellRecord(const std::string& path, const hx::RecordRecognition::Answer& answer,
                    std::vector<Json>& told);
    Count& CountOf(const hx::RecordType& type);
    void Refuse(const Json& item);

    hx::MXmlDocument& m_document;
    const std::wstring m_root;
    const hx::RecordRecognition m_recognition;
    std::vector<Count> m_counts;
    bool m_root_is_record = false;
    size_t m_refused = 0;
    std::string m_first_refusal;
};

Json Item(const std::string& path, bool by_name, Json record) {
    Json item = {{"path", path}, {"knownBy", by_name ? "name" : "children"}};
    for (auto& [key, value] : record.items()) item[key] = std::move(value);
    return item;
}

// Where the root is a record itself, of those in its children; they are told by themselves.
void RecordFinder::TellRoot(std::vector<Json>& told) {
    for (const hx::InventoryRow& row : hx::RecordInventory()) {
        if (!row.element.empty() || row.root != m_root) continue;
        m_root_is_record = true;
        const RecordReading reading = ReadRecord(m_document.GetText(), row, {});
        Json item =
            Item(hx::ToUtf8(m_root), true, RecordAccount(*row.type, reading, ElementTree(m_document)));
        item["fields"] = item["unknown"] = Json::array();
        if (!reading.read) Refuse(item);
        told.push_back(std::move(item));
    }
}

void RecordFinder::Refuse(const Json& item) {
    if (m_refused++ > 0) return;
    const auto text = [&](const char* key) { return item[key].get<std::string>(); };
    m_first_refusal = text("path") + ": not read as " + text("class") + ": " + text("reason");
}

// True if there is a record among the children of the current element, or below them.
bool RecordFinder::TellChildren(const std::string& path, int depth, std::vector<Json>& told) {
    bool found = false;
    std::map<std::wstring, size_t> repeated;
    size_t others = 0;
    ForEachChild(m_document, [&] {
        const size_t number = ++repeated[m_document.GetTagName()];
        std::string child = (path.empty() ? "" : path + "/") + hx::ToUtf8(m_document.GetTagName());
        if (number > 1) child += "[" + std::to_string(number) + "]";
        std::vector<Json> other;
        found |= TellChild(child, depth, told, other);
        others += other.size();
        if (others <= kToldOfOthers) std::ranges::move(other, std::back_inserter(told));
    });
    if (others > kToldOfOthers) {
        told.push_back({{"path", path}, {"more", others - kToldOfOthers}});
    }
    return found;
}

bool RecordFinder::TellChild(const std::string& path, int depth, std::vector<Json>& told,
                             std::vector<Json>& others) {
    const std::wstring type = TypeOfElement(m_document);
    if (!type.empty()) {
        const bool is_roots = m_root_is_record && depth == 0 && m_document.IsElement(hx::kVersionChild);
        if (is_roots) return false;
        others.push_back(
            {{"path", path}, {"type", hx::ToUtf8(type)}, {"value", hx::ToUtf8(m_document.GetContent())}});
        return false;
    }
    const auto children = ChildrenOfElement(m_document);
    const auto answer = m_recognition.Recognise(m_root, m_document.GetTagName(), children);
    if (answer.row != nullptr) {
        TellRecord(path, answer, told);
        return true;
    }
    std::vector<Json> inner;
    if (depth < kDeepest && TellChildren(path, depth + 1, inner)) {
        std::ranges::move(inner, std::back_inserter(told));
        return true;
    }
    others.push_back({{"path", path}, {"unknown", true}, {"children", children.size()}});
    return false;
}

void RecordFinder::TellRecord(const std::string& path, const hx::RecordRecognition::Answer& answer,
                              std::vector<Json>& told) {
    const hx::RecordType& type = *answer.row->type;
    const RecordReading reading =
        ReadRecord(ElementAlone(m_document, m_root), *answer.row, m_document.GetTagName());
    Count& count = CountOf(type);
    ++count.records;
    if (reading.read) ++count.read;
    const bool one_more_refused = !reading.read && count.shown_refused < kToldInFull;
    if (count.shown >= kToldInFull && !one_more_refused) {
        if (!reading.read) ++m_refused;
        return;
    }
    ++count.shown;
    Json item = Item(path, answer.by_name, RecordAccount(type, reading, ElementTree(m_document)));
    if (!reading.read) {
        ++count.shown_refused;
        Refuse(item);
    }
    told.push_back(std::move(item));
}

RecordFinder::Count& RecordFinder::CountOf(const hx::RecordType& type) {
    const auto found = std::ranges::find(m_counts, &type, &Count::type);
    return found != m_counts.end() ? *found : m_counts.emplace_back(Count{&type});
}

Json RecordFinder::Classes() const {
    Json classes = Json::array();
    for (const Count& count : m_counts) {
        classes.push_back({{"class", hx::ToUtf8(count.type->name)},
                           {"records", count.records},
                           {"read", count.read},
                           {"shown", count.shown}});
    }
    return classes;
}

std::string RecordFinder::Refusal() const {
    if (m_refused < 2) return m_first_refusal;
    return m_first_refusal + " (and " + std::to_string(m_refused - 1) + " more not read)";
}

// The elements of the first levels, "  " in front of each level below the first.
Json Outline(hx::MXmlDocument& document) {
    constexpr size_t kLines = 20;
    constexpr uint32_t kLevels = 3;
    Json lines = Json::array();
    size_t all = 0;
    document.ResetPosition();
    for (bool more = true; more;) {
        if (document.FindElement()) {
            if (document.GetLevel() <= kLevels && ++all <= kLines) {
                lines.push_back(std::string(size_t{2} * (document.GetLevel() - 1), ' ') +
                                hx::ToUtf8(document.GetTagName()));
            }
            document.EnterElement();
        } else {
            more = document.LeaveElement();
        }
    }
    if (all > kLines) lines.push_back("... and " + std::to_string(all - kLines) + " more elements");
    return lines;
}

bool IsRootOfRecords(std::wstring_view root) {
    return std::ranges::any_of(hx::RecordInventory(), [&](const auto& row) { return row.root == root; });
}

}  // namespace

Account AccountOf(const std::string& file, std::wstring text) {
    Account account;
    hx::MXmlDocument document;
    const bool well_formed = document.Parse(std::move(text));
    document.ResetPosition();
    const std::wstring root = document.FindElement() ? document.GetTagName() : std::wstring();
    const std::string error = hx::ToUtf8(document.GetError());
    account.content = {
        {"file", file}, {"wellFormed", well_formed}, {"error", error}, {"root", hx::ToUtf8(root)}};
    if (!document.IsReadable()) {
        account.content["kind"] = "no readable document";
        account.content["outline"] = Outline(document);
        account.refusal = error;
    } else if (hx::MException chain; root == hx::kChainRoot) {
        account.content["kind"] = "a chain of exceptions; `hxctl exception` tells more";
        if (hx::ReadChainDocument(document.GetText(), chain)) {
            account.content["errorCodes"] = hx::ToUtf8(hx::ErrorCodesText(chain));
        } else {
            account.refusal = "no document of an exception chain";
        }
    } else if (IsRootOfRecords(root)) {
        account.content["kind"] =
            root == hx::kTaggedXmlRoot ? "a settings document" : "a properties document";
        RecordFinder finder(document, root);
        account.content["contents"] = finder.TellAll();
        account.content["classes"] = finder.Classes();
        account.refusal = finder.Refusal();
    } else {
        account.content["kind"] = "no document of this program";
        account.content["outline"] = Outline(document);
    }
    return account;
}

}  // namespace hxctl
