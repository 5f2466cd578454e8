#include "apps/hxctl/document_element.h"

#include <algorithm>

#include "core/filer/TaggedXml.h"

namespace hxctl {
namespace {

// Deeper than any record goes, and no deeper than the stack.
constexpr int kDeepest = 32;

DocumentElement Tree(hx::MXmlDocument& document, int depth) {
    DocumentElement element{document.GetTagName(), TypeOfElement(document), {}, {}};
    if (!element.type.empty()) element.text = document.GetContent();
    if (depth < kDeepest) {
        ForEachChild(document, [&] { element.children.push_back(Tree(document, depth + 1)); });
    }
    return element;
}

}  // namespace

const DocumentElement* DocumentElement::Find(std::wstring_view child) const {
    const auto found = std::ranges::find(children, child, &DocumentElement::name);
    return found == children.end() ? nullptr : &*found;
}

std::wstring TypeOfElement(const hx::MXmlDocument& document) {
    return document.GetAttribute(hx::kTypeAttribute);
}

std::vector<hx::ChildElement> ChildrenOfElement(hx::MXmlDocument& document) {
    std::vector<hx::ChildElement> children;
    ForEachChild(document, [&] { children.push_back({document.GetTagName(), TypeOfElement(document)}); });
    return children;
}

DocumentElement ElementTree(hx::MXmlDocument& document) {
    return Tree(document, 0);
}

std::wstring ElementAlone(const hx::MXmlDocument& document, std::wstring_view root) {
    std::wstring text;
    const std::wstring_view start = document.StartTag();
    text.append(L"<").append(root).append(L">").append(start);
    if (!start.ends_with(L"/>")) {
        text.append(document.ElementContent()).append(L"</").append(document.GetTagName()).append(L">");
    }
    return text.append(L"</").append(root).append(L">");
}

}  // namespace hxctl
