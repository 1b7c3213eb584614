#include "config/new_block.hpp"

#include <algorithm>

namespace quillmere::config {

Block newBlock(const Values& values, Instant now)
{
    Block block = Block::default_(now);
    block.focusDurationSeconds = values.focusSeconds;
    block.breakDurationSeconds = values.breakSeconds;
    block.cycleCount = values.cycleCount;
    return block;
}

Block newBlock(const Values& values, const Template& fields, Instant now)
{
    Block block = newBlock(values, now);
    block.whyValue = fields.why.value_or(block.whyValue);
    block.doneTest = fields.doneTest.value_or(block.doneTest);
    block.hazards = fields.hazards.value_or(block.hazards);
    block.measurableCheck = fields.measurableCheck.value_or(block.measurableCheck);
    block.contextNotes = fields.notes.value_or(block.contextNotes);
    block.focusDurationSeconds = fields.focusSeconds.value_or(block.focusDurationSeconds);
    block.breakDurationSeconds = fields.breakSeconds.value_or(block.breakDurationSeconds);
    block.cycleCount = fields.cycleCount.value_or(block.cycleCount);
    if (!fields.outcomes.empty()) {
        block.outcomes.clear();
        for (const std::string& title : fields.outcomes) {
            block.outcomes.push_back({.id = Identifier::random(), .title = title});
        }
    }
    return block;
}

const Template* templateNamed(const Values& values, std::string_view name)
{
    const auto found = std::find_if(values.templates.begin(), values.templates.end(),
                                    [&](const Template& each) { return each.name == name; });
    return found == values.templates.end() ? nullptr : &*found;
}

}  // namespace quillmere::config
