// The options that change the texts and outcomes of a block that has begun.
#pragma once

#include "amendments/block_texts.hpp"
#include "cli/text_options.hpp"

#include <string>
#include <vector>

namespace quillmere::cli {

/// One option for each text, and three for outcomes, which are named by their number in the block.
class BlockTextOptions {
public:
    void addTo(CLI::App& command);

    bool anyGiven() const;

    /// The texts that were given. An outcome whose title changes keeps its identifier. Throws ProgramError
    /// (`usage`) for the number of an outcome that the block does not have.
    amendments::BlockTexts textsFor(const Block& block) const;

private:
    std::optional<std::vector<Outcome>> outcomesFor(const Block& block) const;

    RecordOptions<Block> texts_{work::begunBlockFields.subspan<1, 5>()};
    std::vector<std::string> titles_;   ///< "2=Chapter two"
    std::vector<std::string> added_;    ///< titles
    std::vector<std::string> removed_;  ///< numbers
};

}  // namespace quillmere::cli
