// A form as a value: fields, each with its first and its present value.
#pragma once

#include "base/text/hours.hpp"
#include "work/fields/field_value.hpp"
#include "work/fields/prompt.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillmere::work {

enum class FormKind {
    // The work waits for these.
    block,
    plan,
    review,
    reflection,
    // A person opens these.
    answer,
    question,
    length,
    goOn,
    earlierEnd,
    away,
    blockChange,
    correction,
    anotherStart,
    blockCorrection,
};

}  // namespace quillmere::work

template <>
struct quillmere::EnumerationTable<quillmere::work::FormKind> {
    using Kind = work::FormKind;
    static constexpr auto rows = std::to_array<RawText<Kind>>({
        {Kind::block, "block"},
        {Kind::plan, "plan"},
        {Kind::review, "review"},
        {Kind::reflection, "reflection"},
        {Kind::answer, "answer"},
        {Kind::question, "question"},
        {Kind::length, "length"},
        {Kind::goOn, "go-on"},
        {Kind::earlierEnd, "earlier-end"},
        {Kind::away, "away"},
        {Kind::blockChange, "block-change"},
        {Kind::correction, "correction"},
        {Kind::anotherStart, "another-start"},
        {Kind::blockCorrection, "block-correction"},
    });
};

namespace quillmere::work {

/// The record that a form is about. A draft comes back only in a form of the same subject.
struct FormSubject {
    FormKind kind;
    std::string name;  ///< of the block, session or question; letters, digits and hyphens

    friend bool operator==(const FormSubject&, const FormSubject&) = default;
};

/// One option of a choice.
struct Option {
    std::string key;  ///< the value of the field while the option is chosen
    std::string text;
};

struct Field {
    std::string id;  ///< unique in the form
    std::string question;
    FieldKind kind;
    FieldValue value;
    std::string heading = {};          ///< stands above the field; empty: none
    std::string hint = {};             ///< shown while the field is empty
    std::vector<Option> options = {};  ///< of a choice
    bool areOptionsLong = false;       ///< options need a line each
    FieldValue beginning = {};         ///< the value when the form was made
};

/// A field that was changed.
struct FieldChange {
    std::string id;
    std::optional<FieldValue> beginning;  ///< absent when a draft does not say it
    FieldValue value;

    friend bool operator==(const FieldChange&, const FieldChange&) = default;
};

/// The effect of a draft on a form.
enum class BroughtBack {
    nothing,
    all,
    overChanges,  ///< at least one field had got another value elsewhere since the draft
};

class Form {
public:
    explicit Form(FormSubject subject, base::Hours hours = base::Hours::twentyFour)
        : subject_(std::move(subject)), hours_(hours)
    {
    }

    const FormSubject& subject() const { return subject_; }
    /// How its fields show times. They read both.
    base::Hours hours() const { return hours_; }

    /// A line above all fields; empty: none.
    const std::string& reminder() const { return reminder_; }
    void setReminder(std::string reminder) { reminder_ = std::move(reminder); }

    /// Adds a field below the others; its value is what it began with. A choice whose value is none of its
    /// options begins with nothing chosen.
    void add(Field field);
    /// The heading of the next field that is added.
    void addHeading(std::string heading) { nextHeading_ = std::move(heading); }

    const std::vector<Field>& fields() const { return fields_; }
    bool has(std::string_view id) const { return indexOf(id).has_value(); }
    std::optional<std::size_t> indexOf(std::string_view id) const;
    /// A field that must exist.
    const Field& field(std::string_view id) const;
    /// The value of a field that is no list.
    const std::string& text(std::string_view id) const;

    /// Sets a value as the person does.
    void setValue(std::size_t index, FieldValue value);

    /// Whether the person has changed anything, now or in a draft.
    bool isTouched() const { return isTouched_; }

    /// The fields whose values have changed since the form was opened.
    std::vector<FieldChange> changes() const;
    /// Sets the fields of a draft. Values that do not fit their field are left out.
    BroughtBack bringBack(const std::vector<FieldChange>& changes);

private:
    FormSubject subject_;
    base::Hours hours_;
    std::string reminder_;
    std::string nextHeading_;
    std::vector<Field> fields_;
    bool isTouched_ = false;
};

}  // namespace quillmere::work
