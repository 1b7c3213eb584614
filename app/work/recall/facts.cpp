#include "work/recall/facts.hpp"

#include <quillmere/records/base/enumeration.hpp>

#include <algorithm>
#include <span>

namespace quillmere::work {
namespace {

// One overload for each type of member.

std::string textOf(const std::string& text, const Block&) { return text; }
std::string textOf(double seconds, const Block&) { return base::durationText(seconds); }
std::string textOf(CompletionResult completion, const Block&) { return std::string(rawValue(completion)); }
std::string textOf(const std::optional<Instant>&, const Block&) { return {}; }
std::string textOf(const std::vector<Outcome>&, const Block&) { return {}; }
std::string textOf(const std::optional<Identifier>& id, const Block& block)
{
    const auto served = std::find_if(block.outcomes.begin(), block.outcomes.end(),
                                     [&](const Outcome& outcome) { return outcome.id == id; });
    return served == block.outcomes.end() ? std::string() : served->title;
}
std::string textOf(std::int64_t number, const Block&) { return std::to_string(number); }

template <class Record>
std::vector<Fact> factsOfAll(const Record& record, std::span<const RecordField<Record>> fields,
                             const Block& block)
{
    std::vector<Fact> facts;
    for (const RecordField<Record>& field : fields) {
        if (std::optional<Fact> fact = factOf(record, field, block)) {
            facts.push_back(*std::move(fact));
        }
    }
    return facts;
}

template <class Record>
std::span<const RecordField<Record>> tableOf()
{
    if constexpr (std::is_same_v<Record, Block>) {
        return blockFields;
    } else if constexpr (std::is_same_v<Record, SessionPlan>) {
        return planFields;
    } else if constexpr (std::is_same_v<Record, SessionReview>) {
        return reviewFields;
    } else {
        return reflectionFields;
    }
}

}  // namespace

template <class Record>
std::optional<Fact> factOf(const Record& record, const RecordField<Record>& field, const Block& block)
{
    std::string text =
        std::visit([&](const auto member) { return textOf(record.*member, block); }, field.member);
    const bool isRating = field.prompt.limits.most == ratingLimits.most;
    if (text.empty() || (isRating && text == "0")) {
        return std::nullopt;
    }
    return Fact{std::string(field.label),
                text + (isRating ? " of " + std::to_string(ratingLimits.most) : "")};
}

std::vector<Fact> factsOf(const SessionPlan& plan, const Block& block)
{
    SessionPlan told = plan;
    const Outcome* const served = block.outcomeServed(plan);
    if (served && served->title == plan.intendedOutcome) {
        told.blockOutcomeID.reset();
    }
    return factsOfAll<SessionPlan>(told, planFields, block);
}

std::vector<Fact> factsOf(const SessionReview& review, const Block& block)
{
    return factsOfAll<SessionReview>(review, reviewFields, block);
}

std::vector<Fact> factsOf(const BlockReview& reflection, const Block& block)
{
    return factsOfAll<BlockReview>(reflection, reflectionFields, block);
}

std::vector<Fact> factsOf(const Block& block)
{
    std::vector<Fact> facts;
    for (const RecordField<Block>& field : blockFields) {
        if (const auto* const text = std::get_if<std::string Block::*>(&field.member)) {
            addFact(facts, block, *text, block);
        }
    }
    return facts;
}

template <class Record>
void addFact(std::vector<Fact>& facts, const Record& record, std::string Record::*text, const Block& block)
{
    for (const RecordField<Record>& field : tableOf<Record>()) {
        if (field.member == Member<Record>(text)) {
            if (std::optional<Fact> fact = factOf(record, field, block)) {
                facts.push_back(*std::move(fact));
            }
        }
    }
}

template void addFact(std::vector<Fact>&, const Block&, std::string Block::*, const Block&);
template void addFact(std::vector<Fact>&, const SessionPlan&, std::string SessionPlan::*, const Block&);
template void addFact(std::vector<Fact>&, const SessionReview&, std::string SessionReview::*, const Block&);

}  // namespace quillmere::work
