#include "cli/block_text_options.hpp"

#include "cli/exit_code.hpp"
#include "cli/outcome_prompts.hpp"
#include "work/fields/answers.hpp"

#include <algorithm>
#include <charconv>
#include <set>

namespace quillmere::cli {
namespace {

/// The place of the outcome with this number. Throws ProgramError when the block has none.
std::size_t placeOf(std::string_view digits, const Block& block)
{
    std::size_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > block.outcomes.size()) {
        throw ProgramError(ExitCode::usage, "The block has no outcome " + std::string(digits) + ".");
    }
    return number - 1;
}

CLI::Validator numberAndTitle()
{
    return {[](std::string& text) -> std::string {
                const std::size_t digits = text.find_first_not_of("0123456789");
                return digits != 0 && digits != std::string::npos && text[digits] == '='
                           ? ""
                           : "is no number of an outcome with its new title, such as \"2=Chapter two\"";
            },
            ""};
}

}  // namespace

void BlockTextOptions::addTo(CLI::App& command)
{
    texts_.addTo(command);
    const auto add = [&](const char* name, std::vector<std::string>& values, const char* help) {
        return command.add_option(name, values, std::string(help) + " (may be given several times)")
            ->allow_extra_args(false)
            ->check(wellFormedText());
    };
    add("--outcome", titles_, "Another title of an outcome: 2=Chapter two")->check(numberAndTitle());
    add("--outcome-add", added_, "One more outcome");
    add("--outcome-remove", removed_, "The number of an outcome to be removed");
}

bool BlockTextOptions::anyGiven() const
{
    return texts_.anyGiven() || !titles_.empty() || !added_.empty() || !removed_.empty();
}

void BlockTextOptions::askForAll(const Asking& asking, const Block& present, const Require& requireRemovable)
{
    asked_ = askForOutcomes(asking, present, requireRemovable);
    texts_.askForMissing(
        [&](const work::RecordField<Block>& field) { return askForField(asking, field, present); });
}

amendments::BlockTexts BlockTextOptions::textsFor(const Block& block) const
{
    return {.whyValue = texts_.given("why"),
            .doneTest = texts_.given("done-test"),
            .hazards = texts_.given("hazards"),
            .measurableCheck = texts_.given("check"),
            .contextNotes = texts_.given("notes"),
            .outcomes = outcomesFor(block)};
}

std::optional<std::vector<Outcome>> BlockTextOptions::outcomesFor(const Block& block) const
{
    if (asked_) {
        return work::outcomesFrom(*asked_);
    }
    if (titles_.empty() && added_.empty() && removed_.empty()) {
        return std::nullopt;
    }
    std::vector<Outcome> present = block.outcomes;
    for (const std::string& text : titles_) {
        const std::size_t sign = text.find('=');
        present[placeOf(text.substr(0, sign), block)].title = text.substr(sign + 1);
    }
    std::set<std::size_t> removed;
    for (const std::string& number : removed_) {
        removed.insert(placeOf(number, block));
    }
    std::vector<Outcome> outcomes;
    for (std::size_t place = 0; place < present.size(); ++place) {
        if (!removed.contains(place)) {
            outcomes.push_back(present[place]);
        }
    }
    for (const std::string& title : added_) {
        outcomes.push_back({.id = Identifier::random(), .title = title});
    }
    return outcomes;
}

}  // namespace quillmere::cli
