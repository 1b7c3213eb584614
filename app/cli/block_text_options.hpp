// The options that change the texts and outcomes of a block that has begun.
#pragma once

#include "amendments/block_texts.hpp"
#include "cli/field_prompts.hpp"
#include "cli/prompt.hpp"
#include "cli/text_options.hpp"
#include "work/fields/field_value.hpp"

#include <optional>
#include <string>
#include <vector>

namespace quillmere::cli {

/// One option for each text, and three for outcomes, which are named by their number in the block.
class BlockTextOptions {
public:
    void addTo(CLI::App& command);

    bool anyGiven() const;

    /// Asks for all texts and outcomes, with those that the block has to be kept by Enter. `requireRemovable`
    /// is given the identifier of an outcome that is to be removed.
    void askForAll(const Asking& asking, const Block& present, const Require& requireRemovable);

    /// The texts that were given. An outcome whose title changes keeps its identifier. Throws ProgramError
    /// (`usage`) for the number of an outcome that the block does not have.
    amendments::BlockTexts textsFor(const Block& block) const;

private:
    std::optional<std::vector<Outcome>> outcomesFor(const Block& block) const;

    RecordOptions<Block> texts_{work::begunBlockFields.subspan<1, 5>()};
    std::vector<std::string> titles_;   ///< "2=Chapter two"
    std::vector<std::string> added_;    ///< titles
    std::vector<std::string> removed_;  ///< numbers
    std::optional<std::vector<work::ListItem>> asked_;
};

}  // namespace quillmere::cli
