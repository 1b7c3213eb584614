// Short names of questions, as a person types them.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

/// The first characters of each question's identifier, in the order of the state: at least four, and as many
/// as it takes to tell it from every other question.
std::vector<std::string> shortQuestionNames(const QuillmereState& state);

/// The question with this name, open or answered: its number among the open ones, or the first characters of
/// its identifier in either case, at least four. Throws base::Refusal (`invalidRequest`) for a name that no
/// question has and that several have; these are then named.
const AgentQuestion& questionNamed(std::string_view name, const QuillmereState& state);

}  // namespace quillmere::work
