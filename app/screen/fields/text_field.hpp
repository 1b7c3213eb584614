// A text.
#pragma once

#include "screen/fields/field.hpp"
#include "screen/fields/text_editor.hpp"

namespace quillmere::screen {

/// Shows what an editor holds; where that is nothing, a hint.
void drawText(Canvas& canvas, const Area& area, const TextEditor& editor, bool isCurrent,
              std::string_view hint);

/// What was pasted as one line: spaces for tabs and line breaks, but for those at the end.
std::string inOneLine(std::string text);

/// Its value is the text.
class TextField final : public Field {
public:
    /// With one line, `enter` is not for the field.
    enum class Lines { one, several };

    TextField(std::string id, std::string question, std::string text, Lines lines, std::string hint = {})
        : Field(std::move(id), std::move(question)),
          editor_(std::move(text)),
          lines_(lines),
          hint_(std::move(hint))
    {
    }

    Effect take(const Key& key, std::size_t columns) override;
    std::size_t rows(std::size_t columns) const override { return editor_.rows(columns).size(); }
    void draw(Canvas& canvas, const Area& area, bool isCurrent, Look look) const override;
    nlohmann::json value() const override { return editor_.text(); }
    void setValue(const nlohmann::json& value) override;

private:
    TextEditor editor_;
    Lines lines_;
    std::string hint_;
};

}  // namespace quillmere::screen
