// The amount of work of a proof, and its reported figures.
//
// Every proof has a short form, which runs with all tests, and a long form, which script/prove runs and whose
// figures are in docs/reliability.md.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

namespace quillmere::test {

/// Whether the environment asks for the long form: QUILLMERE_PROOF_FORM is "long".
bool inLongForm();

/// The amount of work in the current form.
inline std::uint64_t amount(std::uint64_t shortForm, std::uint64_t longForm)
{
    return inLongForm() ? longForm : shortForm;
}

/// Adds a row to the table of figures in the file QUILLMERE_PROOF_TABLE; prints it if the variable is not
/// set. `promise` names the tested promise, `what` the counted things.
void reportFigure(const std::string& promise, const std::string& what, const std::string& figure);

/// Formats the count with commas between thousands.
void reportFigure(const std::string& promise, const std::string& what, std::integral auto count)
{
    std::string digits = std::to_string(count);
    for (std::size_t place = digits.size(); place > 3;) {
        place -= 3;
        digits.insert(place, 1, ',');
    }
    reportFigure(promise, what, digits);
}

}  // namespace quillmere::test
