#include "statefile/kept_part.hpp"

#include "statefile/composition.hpp"

#include <quillmere/records/base/fatal_error.hpp>
#include <quillmere/store/atomic_write.hpp>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace quillmere::statefile {
namespace {

template <class Record>
std::vector<Identifier> identifiersOf(const std::vector<Record>& records)
{
    std::vector<Identifier> identifiers;
    for (const Record& record : records) {
        identifiers.push_back(record.id);
    }
    return identifiers;
}

}  // namespace

KeptPart::KeptPart(OpenFile file, std::vector<Run> questions, Run blocks, const QuillmereState& state)
    : file_(std::move(file)),
      questions_(std::move(questions)),
      blocks_(blocks),
      questionsRead_(identifiersOf(state.agentQuestions)),
      blocksRead_(identifiersOf(state.blockHistory))
{
}

void KeptPart::save(const QuillmereState& state, const std::filesystem::path& file,
                    const ReplaceItem& replaceItem) const
{
    requireSameRecords(state);
    const Composition composition = compose(state, questions_, blocks_);
    const ByteSource nothing = [](const ByteSink&) {};
    writeAtomically(nothing, file,
                    [&](const std::filesystem::path& temporary, const std::filesystem::path& destination) {
                        write(composition, file_, temporary);
                        if (file_.hasChanged()) {
                            throw std::filesystem::filesystem_error("copy", destination,
                                                                    {EBUSY, std::generic_category()});
                        }
                        replaceItem(temporary, destination);
                    });
}

void KeptPart::requireSameRecords(const QuillmereState& state) const
{
    const std::vector<Identifier> questions = identifiersOf(state.agentQuestions);
    const std::vector<Identifier> blocks = identifiersOf(state.blockHistory);
    const bool hasQuestions = questions.size() >= questionsRead_.size() &&
                              std::equal(questionsRead_.begin(), questionsRead_.end(), questions.begin());
    const bool hasBlocks = blocks.size() >= blocksRead_.size() &&
                           std::equal(blocksRead_.rbegin(), blocksRead_.rend(), blocks.rbegin());
    if (!hasQuestions || !hasBlocks) {
        fatalError("quillmere: a change of the present would change the years");
    }
}

}  // namespace quillmere::statefile
