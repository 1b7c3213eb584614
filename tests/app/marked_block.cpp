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

QuillmereState markedStateIn(WorkflowState workflowState)
{
    QuillmereState state = QuillmereState::initial(moment);
    state.workflowState = workflowState;
    state.currentBlock = markedBlock();
    state.currentBlock->reflection.reset();
    state.currentBlock->completedAt.reset();
    WorkSession& last = state.currentBlock->sessions.back();
    if (workflowState == WorkflowState::focusing) {
        last.endedAt.reset();
    }
    if (workflowState == WorkflowState::focusing || workflowState == WorkflowState::sessionReview) {
        last.review.reset();
    }
    if (workflowState == WorkflowState::breaking) {
        state.breakStartedAt = moment;
    }
    if (workflowState == WorkflowState::breaking || workflowState == WorkflowState::sessionPlanning) {
        state.plannedNextSession = SessionPlan::blank(Identifier::random());
        visitTexts(*state.plannedNextSession, "",
                   [](const std::string& key, std::string& text) { text = "next-" + key; });
    }
    return state;
}

std::vector<std::string> markersPromisedIn(WorkflowState workflowState)
{
    switch (workflowState) {
        case WorkflowState::sessionPlanning:
            return {"why_value-of-block",     "done_test-of-block", "hazards-of-block",
                    "noteworthy_result-of-2", "distractions-of-2",  "improvement-of-2",
                    "next-intended_outcome",  "next-first_action",  "next-hazards_mitigation",
                    "next-nicu_framing"};
        case WorkflowState::focusing:
            return {"intended_outcome-of-2",
                    "first_action-of-2",
                    "hazards_mitigation-of-2",
                    "nicu_framing-of-2",
                    "why_value-of-block",
                    "done_test-of-block",
                    "title-of-1"};
        case WorkflowState::sessionReview:
            return {"intended_outcome-of-2", "first_action-of-2", "hazards_mitigation-of-2",
                    "nicu_framing-of-2"};
        case WorkflowState::breaking:
            return {"noteworthy_result-of-2", "distractions-of-2", "improvement-of-2",
                    "next-intended_outcome",  "next-first_action", "next-hazards_mitigation",
                    "next-nicu_framing"};
        case WorkflowState::blockReview:
            return {"title-of-1",
                    "title-of-2",
                    "intended_outcome-of-1",
                    "noteworthy_result-of-1",
                    "noteworthy_result-of-2",
                    "done_test-of-block",
                    "measurable_check-of-block",
                    "hazards-of-block",
                    "hazards_mitigation-of-1",
                    "distractions-of-1",
                    "distractions-of-2"};
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::complete: break;
    }
    return {};
}

void expectAll(const std::vector<std::string>& markers, const std::string& text)
{
    for (const std::string& marker : markers) {
        EXPECT_NE(text.find(marker), std::string::npos) << marker << " is not in\n" << text;
    }
}

}  // namespace quillmere::test
