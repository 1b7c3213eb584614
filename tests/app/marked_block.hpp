// A block in which each text names itself, to find out where it is shown.
#pragma once

#include <quillmere/records/block.hpp>

#include <string>
#include <vector>

namespace quillmere::test {

/// A finished block of two sessions out of three. Each text is a marker: the key of its field and the
/// place of its record: "why_value-of-block", "intended_outcome-of-2". Fields are found by the tables of the
/// records, so that a new one is among them.
Block markedBlock();

/// All markers of a marked block.
std::vector<std::string> markersOf(const Block& block);

/// Fails for each marker that is not in the text.
void expectAll(const std::vector<std::string>& markers, const std::string& text);

}  // namespace quillmere::test
