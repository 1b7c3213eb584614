// What is to be seen at each place of the workflow: drawn from a situation, and from nothing else.
#pragma once

#include "screen/canvas.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_family.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

/// A key and what it does.
struct KeyHint {
    std::string key;
    std::string label;
};

/// What surrounds the content of every screen.
struct Frame {
    std::string_view title;
    std::string caption;
    QuillmereDesign::Accent accent;
    std::string note;     ///< at the right of the first row
    std::string message;  ///< above the keys
    std::vector<KeyHint> keys;
};

/// Draws the frame; returns the room that it leaves.
Area drawFrame(Canvas& canvas, const Frame& frame);

/// What is scheduled, and what was finished last.
void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation);

/// The running timer, with the plan of the session that runs or comes next.
void drawCountdown(Canvas& canvas, const Area& area, const workspace::Situation& situation);

/// The questions that wait for an answer: one is chosen, and stands there in full, `scrolled` rows of it and
/// of what is above it out of view.
void drawQuestions(Canvas& canvas, const Area& area, const workspace::Situation& situation,
                   std::size_t chosen, std::size_t scrolled);

/// As many rows bring the end of the chosen question into view.
std::size_t mostScrolled(Size window, const Area& area, const workspace::Situation& situation,
                         std::size_t chosen);

/// Why there is nothing to be seen.
void drawTrouble(Canvas& canvas, const Area& area, std::string_view trouble);

}  // namespace quillmere::screen
