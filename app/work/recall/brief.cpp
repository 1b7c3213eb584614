#include "work/recall/brief.hpp"

#include "work/fields/fields.hpp"

#include <algorithm>

namespace quillmere::work {
namespace {

std::string_view improvementLabel()
{
    const auto row =
        std::find_if(reviewFields.begin(), reviewFields.end(), [](const RecordField<SessionReview>& field) {
            return field.member == Member<SessionReview>(&SessionReview::improvement);
        });
    return row->label;
}

/// Whether a fact is a rating of a plan. A number helps little while there is room for few words.
bool isRating(const Fact& fact)
{
    return std::any_of(planFields.begin(), planFields.end(), [&](const RecordField<SessionPlan>& field) {
        return field.label == fact.label && field.prompt.limits.most == ratingLimits.most;
    });
}

void removeRatings(Recall& recall)
{
    for (Passage& passage : recall) {
        std::erase_if(passage.facts, isRating);
    }
}

/// The index of the fact of a passage that is told first.
std::size_t mostHelpfulOf(const Passage& passage)
{
    const auto found = std::find_if(passage.facts.begin(), passage.facts.end(),
                                    [](const Fact& fact) { return fact.label == improvementLabel(); });
    return found == passage.facts.end() ? 0 : static_cast<std::size_t>(found - passage.facts.begin());
}

/// The place of a fact in a recall.
struct FactPlace {
    std::size_t passage;
    std::size_t fact;

    auto operator<=>(const FactPlace&) const = default;
};

std::vector<FactPlace> mostHelpfulFirst(const Recall& recall)
{
    std::vector<FactPlace> first;
    std::vector<FactPlace> then;
    for (std::size_t index = 0; index < recall.size(); ++index) {
        const std::size_t mostHelpful = mostHelpfulOf(recall[index]);
        for (std::size_t fact = 0; fact < recall[index].facts.size(); ++fact) {
            (fact == mostHelpful ? first : then).push_back({index, fact});
        }
    }
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

bool isInForm(const Fact& fact, const Form& form)
{
    return fact.text == form.reminder() ||
           std::any_of(form.fields().begin(), form.fields().end(),
                       [&](const Field& field) { return field.beginning == FieldValue(fact.text); });
}

}  // namespace

std::vector<Fact> briefOf(Recall recall, std::size_t most)
{
    removeRatings(recall);
    std::vector<FactPlace> places = mostHelpfulFirst(recall);
    places.resize(std::min(places.size(), most));
    std::sort(places.begin(), places.end());
    std::vector<Fact> facts;
    for (const FactPlace& place : places) {
        facts.push_back(recall[place.passage].facts[place.fact]);
    }
    return facts;
}

Recall beside(const Form& form, Recall recall)
{
    for (Passage& passage : recall) {
        std::erase_if(passage.facts, [&](const Fact& fact) { return isInForm(fact, form); });
    }
    std::erase_if(recall, [](const Passage& passage) { return passage.facts.empty(); });
    return recall;
}

}  // namespace quillmere::work
