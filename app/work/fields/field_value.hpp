// The value of a field.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace quillmere::work {

/// An item of a list.
struct ListItem {
    std::string key;  ///< identifies the record that the item stands for; empty for a new item
    std::string text;

    friend bool operator==(const ListItem&, const ListItem&) = default;
};

/// A text, the key of a choice (empty while nothing is chosen), or the items of a list.
using FieldValue = std::variant<std::string, std::vector<ListItem>>;

}  // namespace quillmere::work
