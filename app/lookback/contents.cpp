#include "lookback/contents.hpp"

#include "work/fields/fields.hpp"

#include <span>

namespace quillmere::lookback {
namespace {

template <class Record>
void reduce(Record& record, std::span<const work::RecordField<Record>> fields, const Contents& contents)
{
    for (const work::RecordField<Record>& field : fields) {
        if (const auto* const text = std::get_if<std::string Record::*>(&field.member)) {
            if (!contents.texts) {
                (record.**text).clear();
            }
        } else if (const auto* const number = std::get_if<std::int64_t Record::*>(&field.member)) {
            if (!contents.ratings && field.prompt.limits.most == work::ratingLimits.most) {
                record.** number = 0;
            }
        }
    }
}

void reduce(WorkSession& session, const Contents& contents)
{
    reduce<SessionPlan>(session.plan, work::planFields, contents);
    if (session.review) {
        reduce<SessionReview>(*session.review, work::reviewFields, contents);
    }
}

void reduce(Block& block, const Contents& contents)
{
    reduce<Block>(block, work::blockFields, contents);
    for (Outcome& outcome : block.outcomes) {
        if (!contents.texts) {
            outcome.title.clear();
        }
    }
    for (WorkSession& session : block.sessions) {
        reduce(session, contents);
    }
    if (block.reflection) {
        reduce<BlockReview>(*block.reflection, work::reflectionFields, contents);
    }
}

}  // namespace

QuillmereState reducedTo(const Contents& contents, QuillmereState state)
{
    for (Block& block : state.blockHistory) {
        reduce(block, contents);
    }
    if (state.currentBlock) {
        reduce(*state.currentBlock, contents);
    }
    if (state.plannedNextSession) {
        reduce<SessionPlan>(*state.plannedNextSession, work::planFields, contents);
    }
    if (!contents.texts) {
        state.agentQuestions.clear();
    }
    return state;
}

}  // namespace quillmere::lookback
