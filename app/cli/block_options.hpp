// The options by which a block is planned, and the prompts for what they leave out.
#pragma once

#include "base/environment.hpp"
#include "cli/text_options.hpp"

#include <quillmere/records/block.hpp>

#include <optional>
#include <string>

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

    /// Asks for the texts that were not given and for the time. An empty answer keeps what `present` has; a
    /// planned start that has passed is not kept, and the block then begins now.
    void askForMissing(const Block& present, base::Environment& environment, Instant now);

    /// The block with the values that were given, without a planned start when it begins now. Throws
    /// work::Unacceptable.
    Block applyTo(Block block, Instant now) const;

    /// Begins or schedules the block in `blockPlanning`; one without a planned start begins.
    void plan(const Block& present, QuillmereState& state, Instant now) const;

private:
    void askForOutcomes(const Block& present, base::Environment& environment);
    void askForTime(const Block& present, base::Environment& environment, Instant now);

    RecordOptions<Block> fields_{work::blockFields};
    bool start_ = false;
};

}  // namespace quillmere::cli
