#include "core/xml/MXmlDocument.h"
#include "fuzz/fuzz_target.h"

namespace fuzz {
namespace {

constexpr uint32_t kAllNodes = 255;

// Goes through every node, and reads all that can be read; gives the number of elements.
uint32_t WalkAll(hx::MXmlDocument& document) {
    uint32_t elements = 0;
    document.ResetPosition();
    for (bool more = true; more;) {
        if (const uint32_t kind = document.FindNode(kAllNodes)) {
            document.GetTagName();
            document.GetNodeText();
            if (kind != hx::kElementNode) continue;
            ++elements;
            document.GetAttribute(L"type");
            document.GetElementContent();
            Require(document.EnterElement(), "an element that was found can be entered");
        } else {
            more = document.LeaveElement();
        }
    }
    return elements;
}

void MoveOrEdit(hx::MXmlDocument& document, Input& input) {
    const uint8_t flags = input.Byte();
    switch (input.Byte() % 12) {
        case 0:
            document.FindElement(input.Text(20));
            break;
        case 1:
            document.EnterElement();
            break;
        case 2:
            document.LeaveElement();
            break;
        case 3:
            document.FindNode(flags);
            break;
        case 4:
            document.ResetPosition();
            break;
        case 5:
            document.SavePosition(input.Text(2));
            break;
        case 6:
            document.RestorePosition(input.Text(2));
            break;
        case 7:
            document.SetAttribute(input.Text(20), input.Text(20));
            break;
        case 8:
            document.AddNode(1u << (flags % 8), input.Text(20));
            break;
        case 9:
            document.SetElementContent(input.Text(40));
            break;
        default:
            document.AddElement(input.Text(20), input.Text(20), flags & 15u);
            break;
    }
}

// What the document knows of itself must be what a new one learns from its text.
void RequireSameTree(hx::MXmlDocument& edited) {
    hx::MXmlDocument fresh;
    fresh.Parse(edited.GetText());
    edited.ResetPosition();
    for (bool more = true; more;) {
        const uint32_t kind = fresh.FindNode(kAllNodes);
        Require(edited.FindNode(kAllNodes) == kind, "the same node follows");
        if (kind != 0) {
            Require(edited.GetTagName() == fresh.GetTagName(), "it has the same name");
            Require(edited.GetNodeText() == fresh.GetNodeText(), "it has the same text");
            if (kind != hx::kElementNode) continue;
            Require(edited.GetLevel() == fresh.GetLevel(), "it has the same level");
            Require(edited.StartTag() == fresh.StartTag(), "it has the same start tag");
            fresh.EnterElement();
            edited.EnterElement();
        } else {
            more = fresh.LeaveElement();
            Require(edited.LeaveElement() == more, "both have the same depth");
        }
    }
}

}  // namespace

void XmlDocument(Input input) {
    const uint32_t flags = input.Byte() % 2 == 0 ? 0 : hx::MXmlDocument::kIgnoreCase;
    hx::MXmlDocument document(flags);
    const std::wstring text = input.Text(SIZE_MAX);
    const bool well_formed = document.Parse(text);
    Require(document.GetText() == text, "parsing keeps the text");
    Require(well_formed == document.GetError().empty(), "what is not well-formed says why");
    Require(!well_formed || document.IsReadable(), "what is well-formed is readable");
    Require(WalkAll(document) + 1 == document.RecordCount(), "every element is met once");

    // Edits of an ill-formed document need not leave the tree that its new text makes: a tag may now be
    // closed by what was added. They must only never crash.
    while (!input.Empty()) MoveOrEdit(document, input);
    WalkAll(document);
    if (well_formed && flags == 0 && document.GetError().empty()) RequireSameTree(document);
}

}  // namespace fuzz
