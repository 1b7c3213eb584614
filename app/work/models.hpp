// What a new block can be planned after, to choose from: the blocks that were finished last, and the
// templates.
#pragma once

#include "base/text/local_time.hpp"
#include "config/values.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <vector>

namespace quillmere::work {

struct Model {
    std::string name;  ///< of a template; of a block its outcomes; not sanitized, never empty
    std::string note;  ///< where it is from, and its lengths: "2026-11-14 15:25, 4 × 25 min"
    Block block;       ///< its words and lengths count, nothing else
};

/// The last five finished blocks, the newest first, then the templates in the order of the configuration.
std::vector<Model> modelsFor(const QuillmereState& state, const config::Values& values,
                             const base::SeenFrom& here);

}  // namespace quillmere::work
