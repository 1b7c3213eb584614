// The form that changes a block that has begun.
#include "amendments/change_block.hpp"
#include "work/forms/record_forms.hpp"

namespace quillmere::work {
namespace {

/// The new value; absent when it is the old one.
template <class Value>
std::optional<Value> ifOther(const Value& before, const Value& after)
{
    return before == after ? std::nullopt : std::optional(after);
}

amendments::BlockChange changeBetween(const Block& before, const Block& after)
{
    return {.texts = textsBetween(before, after),
            .focusDurationSeconds = ifOther(before.focusDurationSeconds, after.focusDurationSeconds),
            .breakDurationSeconds = ifOther(before.breakDurationSeconds, after.breakDurationSeconds),
            .cycleCount = ifOther(before.cycleCount, after.cycleCount)};
}

}  // namespace

amendments::BlockTexts textsBetween(const Block& before, const Block& after)
{
    return {.whyValue = ifOther(before.whyValue, after.whyValue),
            .doneTest = ifOther(before.doneTest, after.doneTest),
            .hazards = ifOther(before.hazards, after.hazards),
            .measurableCheck = ifOther(before.measurableCheck, after.measurableCheck),
            .contextNotes = ifOther(before.contextNotes, after.contextNotes),
            .outcomes = ifOther(before.outcomes, after.outcomes)};
}

void addBlockChangeFields(Form& form, const QuillmereState& state, Instant)
{
    for (const RecordField<Block>& row : begunBlockFields) {
        form.add(fieldOf(row, "", *state.currentBlock, form.hours()));
    }
}

void saveBlockChange(const Form& form, QuillmereState& state, Instant now)
{
    Block changed = *state.currentBlock;
    applyFields(form, "", begunBlockFields, changed, now);
    amendments::changeBlock(state, changeBetween(*state.currentBlock, changed), now);
}

}  // namespace quillmere::work
