// The frame of every page, and the pages of the work, drawn from a situation alone.
#pragma once

#include "base/text/local_time.hpp"
#include "config/values.hpp"
#include "screen/canvas/canvas.hpp"
#include "screen/pages/page.hpp"
#include "work/recall/passage.hpp"
#include "work/situation_view.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/widget/widget_family.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

/// The parts around the content of every page.
struct Frame {
    std::string_view title;
    std::string caption;
    QuillmereDesign::Accent accent;
    std::string note;     ///< at the right of the first row
    std::string message;  ///< above the keys
    std::vector<KeyHint> keys;
};

/// Draws the frame; returns the area inside it.
Area drawFrame(Canvas& canvas, const Frame& frame);

/// The hint at a place of a window with this frame; null: none.
const KeyHint* hintAt(const Frame& frame, Size window, Place place);

/// The time until a scheduled start, the recall, and the blocks that were finished last.
void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation,
              const work::Recall& recall, const config::Values& values);

/// The running timer, the sessions of the block, and what helps now.
void drawCountdown(Canvas& canvas, const Area& area, const workspace::Situation& situation,
                   const work::Recall& recall, base::Hours hours);

/// What a person wrote, told again. A small window shows the first heading and fact, a line each.
void drawRecall(Canvas& canvas, const Area& area, const work::Recall& recall, Look heading);

/// The work in a window without room for a page: the phase, the time, one line. A message
/// stands in place of the line, and of the time where it is long.
void drawSmallWork(Canvas& canvas, const Frame& frame, const workspace::Situation& situation,
                   base::Hours hours);

/// The phase and a sentence in such a window.
void drawSmallNotice(Canvas& canvas, const Frame& frame, std::string_view sentence);

/// Why the files cannot be used.
void drawTrouble(Canvas& canvas, const Area& area, std::string_view trouble);

}  // namespace quillmere::screen
