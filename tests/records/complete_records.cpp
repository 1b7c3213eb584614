#include "records/complete_records.hpp"

#include "support/sample_states.hpp"

namespace quillmere::test {

Block completeBlock()
{
    Block block = blockInWork(7, 2);
    block.plannedStart = moment - 3600;
    block.scheduledStartTriggeredAt = moment - 3599;
    block.reflection = sampleReflection();
    block.completedAt = moment + 60;
    WorkSession& last = block.sessions.back();
    last.pausedAt = moment + 10;
    last.accumulatedPausedSeconds = 42.5;
    last.endedAt = moment + 20;
    last.review = sampleReview(2);
    return block;
}

QuillmereState completeState()
{
    QuillmereState state = fullState();
    state.currentBlock = completeBlock();
    return state;
}

}  // namespace quillmere::test
