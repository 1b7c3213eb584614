// What a person fills in at one sitting: a record of the workflow, field by field.
#pragma once

#include "screen/fields/field.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_family.hpp>

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quillmere::screen {

enum class FormKind { block, plan, review, reflection, answer, question };

}  // namespace quillmere::screen

template <>
struct quillmere::EnumerationTable<quillmere::screen::FormKind> {
    using Kind = screen::FormKind;
    static constexpr auto rows = std::to_array<RawText<Kind>>({
        {Kind::block, "block"},
        {Kind::plan, "plan"},
        {Kind::review, "review"},
        {Kind::reflection, "reflection"},
        {Kind::answer, "answer"},
        {Kind::question, "question"},
    });
};

namespace quillmere::screen {

/// What a form is about. A draft of one never comes back in another.
struct FormSubject {
    FormKind kind;
    std::string name;  ///< of the block, session or question; letters, digits and hyphens

    friend bool operator==(const FormSubject&, const FormSubject&) = default;
};

/// Something that was filled in cannot be meant: a sentence for the person.
struct Unacceptable : std::runtime_error {
    Unacceptable(std::string fieldId, const std::string& message)
        : std::runtime_error(message), field(std::move(fieldId))
    {
    }

    std::string field;
};

/// What has come back of a draft.
enum class BroughtBack {
    nothing,
    all,
    overChanges,  ///< and stands in a field that began otherwise than it did then
};

class Form {
public:
    explicit Form(FormSubject subject) : subject_(std::move(subject)) {}

    const FormSubject& subject() const { return subject_; }

    /// A line to have in mind while filling in; stands above everything.
    void setReminder(std::string reminder) { reminder_ = std::move(reminder); }

    /// Adds fields, in the order in which they are filled in; a heading stands above the next one added.
    void add(std::unique_ptr<Field> field);
    void addHeading(std::string heading) { nextHeading_ = std::move(heading); }

    bool has(std::string_view id) const;
    /// What a field holds: a text or the key of a choice.
    std::string text(std::string_view id) const;
    const Field& field(std::string_view id) const;

    /// Gives the key to the current field, or moves to another one. Whether that changed a value.
    bool take(const Key& key, Size window);

    /// Whether anything was filled in here, now or in a draft.
    bool isTouched() const { return isTouched_; }

    /// Makes a field the current one.
    void moveTo(std::string_view id);

    /// Shows the part of the form around the cursor, or what `scroll` has brought into view.
    void draw(Canvas& canvas, const Area& area, Look look) const;

    /// Brings what is below or above what `draw` shows in that area of a window into view; the next key that
    /// the form takes brings the cursor back.
    void scroll(bool down, Size window, const Area& area);

    /// What was filled in here, as a draft keeps it: by the name of a field, what it began with and what it
    /// holds now.
    nlohmann::json changes() const;
    /// Fills in what a draft has kept. Fields that it says nothing of stay as they are.
    BroughtBack bringBack(const nlohmann::json& changes);

private:
    Area drawReminder(Canvas& canvas, const Area& area) const;
    /// All fields, as long as they are, to be shown in an area.
    Canvas fieldsFor(const Area& area, Charset charset, Look look) const;
    std::size_t firstRowShown(const Canvas& fields, std::size_t shown) const;

    struct Row {
        std::string heading;
        std::unique_ptr<Field> field;
        nlohmann::json beginning;
    };

    std::optional<std::size_t> indexOf(std::string_view id) const;
    std::size_t indexOfPresent(std::string_view id) const;

    FormSubject subject_;
    std::string reminder_;
    std::string nextHeading_;
    std::vector<Row> rows_;
    std::size_t current_ = 0;
    std::optional<std::size_t> scrolledTo_;
    bool isTouched_ = false;
};

}  // namespace quillmere::screen
