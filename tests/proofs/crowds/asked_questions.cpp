#include "proofs/crowds/asked_questions.hpp"

#include <quillmere/store/state_store.hpp>

#include "proofs/support/figures.hpp"

namespace quillmere::test {

std::uint64_t roundCount() { return amount(4, mostRounds); }

std::string questionOf(int asker, std::uint64_t round)
{
    return "Question " + std::to_string(round) + " of asker " + std::to_string(asker);
}

std::map<std::string, int> questionsIn(const std::filesystem::path& directory)
{
    std::map<std::string, int> counts;
    for (const AgentQuestion& question :
         StateStore(directory, StateStore::renameReplacing).load().agentQuestions) {
        ++counts[question.question];
    }
    return counts;
}

}  // namespace quillmere::test
