// Which record class an element of a document holds: told by the element's name, or by its children where the
// owner chose another name. For tools that are given a document of unknown kind. Any thread.
#pragma once

#include <string>
#include <vector>

#include "settings/inventory/RecordInventory.h"

namespace hx {

struct ChildElement {
    std::wstring name;
    std::wstring type;  // the type word; empty for a group
};

class RecordRecognition {
public:
    RecordRecognition();

    struct Answer {
        const InventoryRow* row = nullptr;  // null: no record, or none that is known
        bool by_name = false;
    };
    Answer Recognise(std::wstring_view root, std::wstring_view element,
                     std::span<const ChildElement> children) const;
    // Without regard to the element's name: the class whose table explains most of the children; null if none
    // explains more than half of them.
    const InventoryRow* RecogniseChildren(std::wstring_view root,
                                          std::span<const ChildElement> children) const;

private:
    struct Shape {
        const InventoryRow* row;
        std::vector<std::pair<std::wstring_view, std::wstring_view>> children;  // name and type word; sorted
    };
    const InventoryRow* Best(std::span<const ChildElement> children, std::wstring_view root,
                             std::wstring_view element) const;

    std::vector<Shape> m_shapes;
};

}  // namespace hx
