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

/// The time until a scheduled start, the recall, and the blocks that were finished last.
void drawIdle(Canvas& canvas, const Area& area, const workspace::Situation& situation,
              const work::Recall& recall, const config::Values& values);

/// The running timer, and what helps now.
void drawCountdown(Canvas& canvas, const Area& area, const work::SituationView& view,
                   const work::Recall& recall, const base::SeenFrom& here);

/// What a person wrote, told again. A small window shows the first facts, a line each.
void drawRecall(Canvas& canvas, const Area& area, const work::Recall& recall, Look heading);

/// Why the files cannot be used.
void drawTrouble(Canvas& canvas, const Area& area, std::string_view trouble);

}  // namespace quillmere::screen
