// The form of a block.
#include "config/new_block.hpp"
#include "work/done_text.hpp"
#include "work/forms/forms.hpp"
#include "work/forms/record_forms.hpp"

#include <quillmere/engine/workflow_engine.hpp>

#include <utility>

namespace quillmere::work {
namespace {

constexpr const char* startId = "at";
/// The first field of the part about time.
constexpr std::string_view firstOfTime = "focus";

Block blockInPlanning(const QuillmereState& state, Instant now, const config::Values& values)
{
    return state.currentBlock ? *state.currentBlock : config::newBlock(values, now);
}

/// The outcomes of a new block get other identifiers each time, so its items have no key: otherwise every
/// draft would seem to be about changed outcomes.
void removeKeys(FieldValue& value)
{
    if (auto* const items = std::get_if<std::vector<ListItem>>(&value)) {
        for (ListItem& item : *items) {
            item.key.clear();
        }
    }
}

}  // namespace

bool hasPlannedStart(const Form& form) { return !form.text(startId).empty(); }

std::string blockTimes(const Form& form, const QuillmereState&, const base::SeenFrom& here)
{
    return hasPlannedStart(form)
               ? done::scheduledFor(startFrom({startId, form.text(startId)}, here.now), here.hours)
               : "";
}

void addBlockFields(Form& form, const QuillmereState& state, Instant now, const config::Values& values)
{
    const Block block = blockInPlanning(state, now, values);
    for (const RecordField<Block>& row : blockFields) {
        if (row.prompt.name == firstOfTime) {
            form.addHeading("Its time");
        }
        Field field = fieldOf(row, "", block, form.hours());
        if (!state.currentBlock) {
            removeKeys(field.value);
        }
        form.add(std::move(field));
    }
}

Form filledLike(const Block& model, Form form)
{
    for (const RecordField<Block>& row : blockFields) {
        if (row.prompt.name != startId) {
            FieldValue value = valueIn(model, row, form.hours());
            removeKeys(value);
            form.setValue(form.indexOf(row.prompt.name).value(), std::move(value));
        }
    }
    return form;
}

void saveBlock(const Form& form, QuillmereState& state, Instant now)
{
    // Lengths of the form that differ from those of this blank block are set, configured ones too.
    Block block = blockInPlanning(state, now, {});
    applyFields(form, "", blockFields, block, now);
    const WorkflowEngine engine;
    if (block.plannedStart) {
        requireToCome(startId, *block.plannedStart, {now, form.hours()});
        engine.scheduleBlock(state, std::move(block), now);
    } else {
        engine.startBlock(state, std::move(block), now);
    }
}

}  // namespace quillmere::work
