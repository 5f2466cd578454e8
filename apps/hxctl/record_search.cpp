#include "apps/hxctl/record_search.h"

#include "apps/hxctl/document_element.h"

namespace hxctl {
namespace {

// The candidates, as many as matter: none, one, or more than one.
struct Search {
    hx::RecordRecognition recognition;
    const hx::InventoryRow* row;
    bool has_usual = false;
    size_t candidates = 0;
    std::wstring element;
    std::wstring alone;  // a document with that element
};

// At depth 0 the children of the root are searched.
void SearchChildren(hx::MXmlDocument& document, Search& search, int depth) {
    constexpr int kDeepest = 6;
    const bool in_usual_group = depth == 0 || (depth == 1 && document.IsElement(search.row->group));
    ForEachChild(document, [&] {
        if (!TypeOfElement(document).empty()) return;
        const std::wstring name = document.GetTagName();
        search.has_usual |= in_usual_group && name == search.row->element;
        if (search.has_usual || search.candidates > 1) return;
        const auto children = ChildrenOfElement(document);
        if (search.recognition.RecogniseChildren(search.row->root, children) == search.row) {
            ++search.candidates;
            search.element = name;
            search.alone = ElementAlone(document, search.row->root);
        } else if (depth < kDeepest) {
            SearchChildren(document, search, depth + 1);
        }
    });
}

}  // namespace

std::wstring FindElementOf(const hx::InventoryRow& row, std::wstring& document) {
    if (row.element.empty()) return {};  // the root itself
    hx::MXmlDocument parsed;
    parsed.Parse(document);
    if (!parsed.IsReadable() || !parsed.FindElement(row.root)) return std::wstring(row.element);
    Search search{{}, &row, false, 0, {}, {}};
    SearchChildren(parsed, search, 0);
    if (search.has_usual || search.candidates != 1) return std::wstring(row.element);
    document = std::move(search.alone);
    return search.element;
}

}  // namespace hxctl
