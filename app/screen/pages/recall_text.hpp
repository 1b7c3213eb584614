// What a person wrote, as a text of full height.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "work/recall/passage.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace quillmere::screen {

struct RecallText {
    Canvas canvas;                            ///< as high as the text
    std::vector<std::size_t> rowsOfHeadings;  ///< by passage
};

/// Whether there is room for a mark before a heading.
enum class Marks { none, possible };

/// All passages, a row apart. The heading of the `marked` passage has a mark before it.
RecallText textOf(const work::Recall& recall, std::size_t columns, Charset charset, Look heading,
                  Marks marks = Marks::none, std::optional<std::size_t> marked = std::nullopt);

}  // namespace quillmere::screen
