// Filling in forms, for tests.
#pragma once

#include "work/forms/forms.hpp"

#include <string>
#include <string_view>
#include <vector>

#include "support/sample_states.hpp"

namespace quillmere::test {

inline void fill(work::Form& form, std::string_view field, const std::string& text)
{
    form.setValue(form.indexOf(field).value(), text);
}

inline void fillList(work::Form& form, std::string_view field, const std::vector<std::string>& texts)
{
    std::vector<work::ListItem> items;
    for (const std::string& text : texts) {
        items.push_back({.key = {}, .text = text});
    }
    form.setValue(form.indexOf(field).value(), items);
}

inline work::Field line(const std::string& id, const std::string& text = {})
{
    return {.id = id, .question = id + "?", .kind = work::FieldKind::line, .value = text};
}

/// The form that the state waits for.
inline work::Form formOf(const QuillmereState& state)
{
    return work::formFor(work::subjectFor(state).value(), state, moment);
}

}  // namespace quillmere::test
