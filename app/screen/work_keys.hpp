// The keys of the work, as hints.
#pragma once

#include "screen/pages/page.hpp"
#include "work/presenter.hpp"

#include <string>
#include <vector>

namespace quillmere::screen {

// Keys that are no actions. None of them is a key of action_keys.hpp.
inline constexpr const char* keysKey = "?";
inline constexpr const char* questionsKey = "a";
inline constexpr const char* historyKey = "h";
inline constexpr const char* lookBackKey = "r";
inline constexpr const char* undoKey = "u";
inline constexpr const char* redoKey = "U";

/// "2 questions"; empty: none.
std::string questionCount(const QuillmereState& state);

/// The same, and "questions" when there are none.
std::string questionsLabel(const QuillmereState& state);

/// The keys shown beside the work. In a narrow window those of the pages of the past stand on the page of
/// keys alone, because rows of keys would take the room of the work.
std::vector<KeyHint> usualKeys(const work::Presenter& presenter, Size window);

/// Every key of the work.
std::vector<KeyHint> allKeys(const work::Presenter& presenter);

}  // namespace quillmere::screen
