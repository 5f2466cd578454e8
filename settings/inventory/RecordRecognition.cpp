#include "settings/inventory/RecordRecognition.h"

#include <algorithm>
#include <tuple>

#include "core/records/RecordFields.h"
#include "settings/inventory/FieldShape.h"

namespace hx {
namespace {

// Fewer children than this tell a class only if they are half of its table: many classes have an "Enable".
constexpr size_t kTelling = 3;

}  // namespace

RecordRecognition::RecordRecognition() {
    for (const InventoryRow& row : RecordInventory()) {
        if (row.element.empty()) continue;  // the root itself
        Shape shape{&row, {}};
        const auto record = row.type->make();
        for (const Field& field : row.type->fields) {
            shape.children.emplace_back(ElementOf(field), WordOf(field, record.get()));
        }
        std::ranges::sort(shape.children);
        shape.children.erase(std::unique(shape.children.begin(), shape.children.end()), shape.children.end());
        m_shapes.push_back(std::move(shape));
    }
}

RecordRecognition::Answer RecordRecognition::Recognise(std::wstring_view root, std::wstring_view element,
                                                       std::span<const ChildElement> children) const {
    const auto has_name = [&](const Shape& shape) {
        return shape.row->root == root && shape.row->element == element;
    };
    const auto named = std::ranges::find_if(m_shapes, has_name);
    if (named == m_shapes.end()) return {RecogniseChildren(root, children), false};
    // Several classes may go by one name.
    const InventoryRow* const best = Best(children, root, element);
    return {best != nullptr ? best : named->row, true};
}

const InventoryRow* RecordRecognition::RecogniseChildren(std::wstring_view root,
                                                         std::span<const ChildElement> children) const {
    return Best(children, root, {});
}

// Of the classes with that usual element; of all, if it is empty.
const InventoryRow* RecordRecognition::Best(std::span<const ChildElement> children, std::wstring_view root,
                                            std::wstring_view element) const {
    const auto version =
        std::ranges::find(children, kVersionChild, [](const ChildElement& child) { return child.name; });
    const size_t total = children.size() - (version == children.end() ? 0 : 1);
    const InventoryRow* best = nullptr;
    // Of classes that explain equally much, the one whose version is of the right type, and then the one that
    // misses least.
    std::tuple<size_t, bool, ptrdiff_t> best_score;
    for (const Shape& shape : m_shapes) {
        if (shape.row->root != root || (!element.empty() && shape.row->element != element)) continue;
        const auto explained = static_cast<size_t>(std::ranges::count_if(children, [&](const auto& child) {
            return child.name != kVersionChild &&
                   std::ranges::binary_search(shape.children, std::pair<std::wstring_view, std::wstring_view>(
                                                                  child.name, child.type));
        }));
        const bool telling = explained >= kTelling || explained * 2 >= shape.children.size();
        if (explained == 0 || explained * 2 <= total || !telling) continue;
        const std::wstring_view word = version == children.end() ? std::wstring_view() : version->type;
        const std::tuple score(explained, word == WordOf(shape.row->type->version),
                               -static_cast<ptrdiff_t>(shape.children.size()));
        if (best == nullptr || score > best_score) {
            best = shape.row;
            best_score = score;
        }
    }
    return best;
}

}  // namespace hx
