// Several short texts, of which there may be more or fewer.
#pragma once

#include "screen/fields/field.hpp"
#include "screen/fields/text_editor.hpp"

#include <vector>

namespace quillmere::screen {

/// Its value is an array of objects with `key` and `text`. `enter` adds one below, and is not for the field
/// on an empty last one; rubbing out an empty one takes it away, but for the only
/// one. Of what is pasted each line is one.
class ListField final : public Field {
public:
    struct Item {
        std::string key;  ///< of what it stands for; empty for what is new
        TextEditor editor;
    };

    ListField(std::string id, std::string question, std::vector<Item> items);

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override;
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    nlohmann::json value() const override;
    void setValue(const nlohmann::json& value) override;

private:
    bool addBelow();
    void paste(std::string_view text);
    bool removeEmpty();

    std::vector<Item> items_;  ///< one at least
    std::size_t current_ = 0;
};

}  // namespace quillmere::screen
