// The options by which a block is planned, and the prompts for what they leave out.
#pragma once

#include "base/text/local_time.hpp"
#include "cli/field_prompts.hpp"
#include "cli/text_options.hpp"
#include "work/fields/field_value.hpp"

#include <quillmere/records/block.hpp>

#include <optional>
#include <vector>

namespace CLI {
class App;
}

namespace quillmere::cli {

class BlockOptions {
public:
    void addTo(CLI::App& command);

    bool anyGiven() const { return start_ || fields_.anyGiven(); }
    bool hasTime() const { return start_ || fields_.given("at"); }
    bool start() const { return start_; }
    /// As if `--start` had been given.
    void giveStart() { start_ = true; }

    /// Asks for everything that was not given, with what `present` has to be kept by Enter. A planned start
    /// that has passed is not offered. Says between the questions how long the block will take.
    void askForMissing(const Block& present, const Asking& asking);

    /// The block with the values that were given, without a planned start when it begins now. Throws
    /// work::Unacceptable.
    Block applyTo(Block block, const base::SeenFrom& here) const;

    /// Begins or schedules the block in `blockPlanning`; one without a planned start begins.
    void plan(const Block& present, QuillmereState& state, const base::SeenFrom& here) const;

private:
    void askForTime(const Block& present, const Asking& asking);
    void tellTimes(const Block& present, const Asking& asking) const;

    RecordOptions<Block> fields_{work::blockFields};
    bool start_ = false;
    std::optional<std::vector<work::ListItem>> outcomes_;  ///< as the person answered
};

}  // namespace quillmere::cli
