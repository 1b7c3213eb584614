// What a person has said in a field before.
#pragma once

#include "work/fields/fields.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace quillmere::work {

inline constexpr std::size_t mostEarlierValues = 100;

/// The values of the field in the records of the state, the newest first: as they would be typed, each once,
/// without empty ones, at most `mostEarlierValues`. Of a list, its items. Instantiated for Block,
/// SessionPlan, SessionReview and BlockReview.
template <class Record>
std::vector<std::string> earlierValues(const QuillmereState& state, const RecordField<Record>& field);

}  // namespace quillmere::work
