#include "work/forms/block_draft.hpp"

#include "config/new_block.hpp"
#include "work/fields/answers.hpp"
#include "work/fields/unacceptable.hpp"
#include "work/forms/forms.hpp"

#include <utility>

namespace quillmere::work {
namespace {

bool isPlannedStart(const RecordField<Block>& row)
{
    return std::holds_alternative<std::optional<Instant> Block::*>(row.member);
}

/// The items of a new block have no key (block_form.cpp).
FieldValue withoutKeys(FieldValue value)
{
    if (auto* const items = std::get_if<std::vector<ListItem>>(&value)) {
        for (ListItem& item : *items) {
            item.key.clear();
        }
    }
    return value;
}

FormSubject subjectOfNextBlock(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::blockPlanning ? *subjectFor(state) : newBlock(state);
}

Block plannedBlock(const QuillmereState& state, Instant now, const config::Values& values)
{
    return state.currentBlock ? *state.currentBlock : config::newBlock(values, now);
}

void setWherePossible(Block& block, const RecordField<Block>& row, const FieldChange& change, Instant now)
{
    try {
        setFrom(block, row, change.id, change.value, now);
    } catch (const Unacceptable&) {
        // The value stays in the draft, where the screen shows it.
    }
}

/// `idle` is the state without the block.
void keepAsDraft(const Block& block, const QuillmereState& idle, const Drafts& drafts, Instant now,
                 const config::Values& values)
{
    Form form = formFor(newBlock(idle), idle, now, values);
    drafts.fillIn(form);
    for (const RecordField<Block>& row : blockFields) {
        const std::size_t index = *form.indexOf(row.prompt.name);
        FieldValue value = withoutKeys(valueIn(block, row, form.hours()));
        if (!isPlannedStart(row) && value != form.fields()[index].beginning) {
            form.setValue(index, std::move(value));
        }
    }
    drafts.keep(form);
}

}  // namespace

workspace::Operation keepingWords(workspace::Operation operation, const Drafts& drafts,
                                  const config::Values& values)
{
    return [operation = std::move(operation), &drafts, values](QuillmereState& state, Instant now) {
        const std::optional<Block> before = state.currentBlock;
        const std::size_t finished = state.blockHistory.size();
        operation(state, now);
        if (before && !state.currentBlock && state.blockHistory.size() == finished) {
            keepAsDraft(*before, state, drafts, now, values);
        }
    };
}

std::optional<Block> draftOfNextBlock(const QuillmereState& state, const Drafts& drafts, Instant now,
                                      const config::Values& values)
{
    Form form = formFor(subjectOfNextBlock(state), state, now, values);
    if (drafts.fillIn(form) == BroughtBack::nothing) {
        return std::nullopt;
    }
    Block block = plannedBlock(state, now, values);
    for (const FieldChange& change : form.changes()) {
        for (const RecordField<Block>& row : blockFields) {
            if (row.prompt.name == change.id && !isPlannedStart(row)) {
                setWherePossible(block, row, change, now);
            }
        }
    }
    return block;
}

void forgetDraftOfNextBlock(const QuillmereState& state, const Drafts& drafts)
{
    drafts.forget(subjectOfNextBlock(state));
}

}  // namespace quillmere::work
