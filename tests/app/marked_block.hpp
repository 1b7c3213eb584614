// A block in which each text names itself, to find out where it is shown.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <vector>

namespace quillmere::test {

/// A finished block of two sessions out of three. Each text is a marker: the key of its field and the
/// place of its record: "why_value-of-block", "intended_outcome-of-2". Fields are found by the tables of the
/// records, so that a new one is among them.
Block markedBlock();

/// All markers of a marked block.
std::vector<std::string> markersOf(const Block& block);

/// The work in this state with a marked block in hand, whose second session is the last, and with a marked
/// plan of the next one ("next-intended_outcome") where there is one.
QuillmereState markedStateIn(WorkflowState workflowState);

/// The markers that every display shows in this state.
std::vector<std::string> markersPromisedIn(WorkflowState workflowState);

/// Fails for each marker that is not in the text.
void expectAll(const std::vector<std::string>& markers, const std::string& text);

}  // namespace quillmere::test
