// How much a proof does, and what it reports.
//
// Every proof has two forms. The short one runs with all tests; the long one is what script/prove runs,
// and its figures stand in docs/reliability.md.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>

namespace quillmere::test {

/// Whether the environment asks for the long form: QUILLMERE_PROOF_FORM is "long".
bool inLongForm();

/// One of two amounts of work, by the form that is asked for.
inline std::uint64_t amount(std::uint64_t shortForm, std::uint64_t longForm)
{
    return inLongForm() ? longForm : shortForm;
}

/// Adds a row to the table of figures, the file that QUILLMERE_PROOF_TABLE names; without one, prints it.
/// `promise` says what was tested, `what` what was counted.
void reportFigure(const std::string& promise, const std::string& what, const std::string& figure);

/// With a comma between thousands.
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
