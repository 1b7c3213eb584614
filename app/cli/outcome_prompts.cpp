#include "cli/outcome_prompts.hpp"

#include "work/fields/answers.hpp"
#include "work/fields/earlier_values.hpp"

#include <string>
#include <utility>
#include <variant>

namespace quillmere::cli {
namespace {

using Items = std::vector<work::ListItem>;

constexpr const work::RecordField<Block>& outcomeField = work::blockFields.front();

Items titledOutcomes(const Block& block)
{
    Items items = std::get<Items>(work::valueIn(block, outcomeField));
    std::erase_if(items, [](const work::ListItem& item) { return item.text.empty(); });
    return items;
}

/// The question for the title of the next outcome.
Question questionFor(const work::ListItem& present, const Items& before, const Asking& asking)
{
    const bool isNew = present.text.empty();
    return {.text = before.empty() ? std::string(outcomeField.prompt.question)
                    : isNew        ? "And what else? (empty: nothing)"
                                   : "And what else?",
            .present = present.text,
            .earlier = work::earlierValues(asking.state, outcomeField)};
}

}  // namespace

std::optional<std::vector<work::ListItem>> askForOutcomes(const Asking& asking, const Block& present,
                                                          const Require& requireRemovable)
{
    const Items before = titledOutcomes(present);
    Items items;
    const auto ask = [&](const work::ListItem& item) {
        return askToChange(asking.environment, questionFor(item, items, asking),
                           [&](const std::string& title) {
                               if (title.empty() && !item.key.empty() && requireRemovable) {
                                   requireRemovable(item.key);
                               }
                           });
    };
    for (const work::ListItem& item : before) {
        const std::string title = ask(item).value_or(item.text);
        if (!title.empty()) {
            items.push_back({item.key, title});
        }
    }
    for (std::string title = ask({}).value_or(""); !title.empty(); title = ask({}).value_or("")) {
        items.push_back({"", title});
    }
    return items == before ? std::nullopt : std::optional(std::move(items));
}

}  // namespace quillmere::cli
