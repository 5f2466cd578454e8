// Elements of a document, apart from it.
#pragma once

#include <string>
#include <vector>

#include "core/xml/MXmlDocument.h"
#include "settings/inventory/RecordRecognition.h"

namespace hxctl {

struct DocumentElement {
    std::wstring name;
    std::wstring type;  // the type word; empty for a group
    std::wstring text;  // of a value
    std::vector<DocumentElement> children;

    // The first child of that name; null if there is none.
    const DocumentElement* Find(std::wstring_view child) const;
};

// Visits the children of the current element, each as the current one, and comes back.
template <class Visit>
void ForEachChild(hx::MXmlDocument& document, Visit&& visit) {
    const auto here = document.GetPosition();
    if (document.EnterElement()) {
        while (document.FindElement()) visit();
    }
    document.SetPosition(here);
}

std::wstring TypeOfElement(const hx::MXmlDocument& document);
std::vector<hx::ChildElement> ChildrenOfElement(hx::MXmlDocument& document);
// The current element with what is in it, down to some depth.
DocumentElement ElementTree(hx::MXmlDocument& document);
// A document with that root, in which the current element stands alone.
std::wstring ElementAlone(const hx::MXmlDocument& document, std::wstring_view root);

}  // namespace hxctl
