#include "proofs/merge/content.hpp"

#include <algorithm>

namespace quillmere::test {
namespace {

std::vector<const Block*> blocksOf(const QuillmereState& state)
{
    std::vector<const Block*> blocks;
    if (state.currentBlock) {
        blocks.push_back(&*state.currentBlock);
    }
    for (const Block& block : state.blockHistory) {
        blocks.push_back(&block);
    }
    return blocks;
}

std::string lostOfBlock(const Block& from, const Block* merged)
{
    for (const WorkSession& session : from.sessions) {
        if (!session.endedAt) {
            continue;
        }
        const auto isSame = [&](const WorkSession& kept) { return kept.id == session.id; };
        const auto kept = merged ? std::find_if(merged->sessions.begin(), merged->sessions.end(), isSame)
                                 : from.sessions.end();
        if (!merged || kept == merged->sessions.end() || !kept->endedAt) {
            return "a session that had ended";
        }
        if (session.review && !kept->review) {
            return "the review of a session";
        }
    }
    const bool isLost = from.completedAt && (!merged || !merged->completedAt);
    return isLost                                                ? "a finished block"
           : from.reflection && (!merged || !merged->reflection) ? "the reflection on a block"
                                                                 : "";
}

}  // namespace

Content Content::of(const QuillmereState& state)
{
    Content content;
    for (const Block* block : blocksOf(state)) {
        if (block->sessions.empty() && !block->completedAt) {
            continue;
        }
        OfBlock& own = content.blocks[block->id];
        own.completedAt = block->completedAt;
        own.reflection = block->reflection;
        for (const WorkSession& session : block->sessions) {
            own.reviews[session.id] = session.review;
        }
    }
    for (const AgentQuestion& question : state.agentQuestions) {
        content.questions.emplace(question.id, question);
    }
    return content;
}

std::string lostFrom(const QuillmereState& from, const QuillmereState& merged)
{
    for (const Block* block : blocksOf(from)) {
        if (std::string lost = lostOfBlock(*block, blockIn(merged, block->id)); !lost.empty()) {
            return lost;
        }
    }
    const Content content = Content::of(merged);
    for (const AgentQuestion& question : from.agentQuestions) {
        const auto kept = content.questions.find(question.id);
        if (kept == content.questions.end()) {
            return "a question";
        }
        if (question.answeredAt && !kept->second.answeredAt) {
            return "an answer";
        }
    }
    return "";
}

const Block* blockIn(const QuillmereState& state, const Identifier& id)
{
    for (const Block* block : blocksOf(state)) {
        if (block->id == id) {
            return block;
        }
    }
    return nullptr;
}

}  // namespace quillmere::test
