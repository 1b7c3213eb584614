#include "marked_block.hpp"

#include <quillmere/records/json/for_each_field.hpp>
#include <quillmere/records/json/record_tables.hpp>

#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr const char* ofBlock = "-of-block";

/// Calls `visit(key, text)` with every text below a record.
template <class Record, class Visitor>
void visitTexts(Record& record, const std::string& place, const Visitor& visit)
{
    forEachField<std::remove_const_t<Record>>([&](const auto& field) {
        auto& value = record.*field.member;
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, std::string>) {
            visit(std::string(field.key) + place, value);
        } else if constexpr (HasFields<Value>) {
            visitTexts(value, place, visit);
        } else if constexpr (json::isList<Value>) {
            for (std::size_t index = 0; index < value.size(); ++index) {
                visitTexts(value[index], "-of-" + std::to_string(index + 1), visit);
            }
        } else if constexpr (json::isOptional<Value>) {
            if constexpr (HasFields<typename Value::value_type>) {
                if (value) {
                    visitTexts(*value, place, visit);
                }
            }
        }
    });
}

}  // namespace

Block markedBlock()
{
    Block block = Block::default_(moment);
    block.cycleCount = 3;
    block.outcomes = {{Identifier::random(), ""}, {Identifier::random(), ""}};
    for (int number = 1; number <= 2; ++number) {
        SessionPlan plan = SessionPlan::blank(Identifier::random());
        plan.blockOutcomeID = block.outcomes.front().id;
        block.sessions.push_back({.id = Identifier::random(),
                                  .number = number,
                                  .plan = plan,
                                  .startedAt = moment,
                                  .plannedDurationSeconds = 1500,
                                  .pausedAt = {},
                                  .accumulatedPausedSeconds = 0,
                                  .endedAt = moment + 1500,
                                  .review = SessionReview{.id = Identifier::random(),
                                                          .completion = CompletionResult::half,
                                                          .noteworthyResult = {},
                                                          .distractions = {},
                                                          .improvement = {}}});
    }
    block.reflection.emplace();
    block.completedAt = moment + 3000;
    visitTexts(block, ofBlock, [](std::string marker, std::string& text) { text = std::move(marker); });
    return block;
}

std::vector<std::string> markersOf(const Block& block)
{
    std::vector<std::string> markers;
    visitTexts(block, ofBlock, [&](const std::string&, const std::string& text) { markers.push_back(text); });
    return markers;
}

void expectAll(const std::vector<std::string>& markers, const std::string& text)
{
    for (const std::string& marker : markers) {
        EXPECT_NE(text.find(marker), std::string::npos) << marker << " is not in\n" << text;
    }
}

}  // namespace quillmere::test
