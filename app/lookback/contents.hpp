// A look back for somebody else: without what the person keeps to themselves.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::lookback {

/// What a look back tells beside times and completion.
struct Contents {
    bool texts = true;    ///< every word that the person wrote
    bool ratings = true;  ///< of energy and morale
};

/// The records without what the contents lack: texts are empty, ratings 0, which no figure counts.
QuillmereState reducedTo(const Contents& contents, QuillmereState state);

}  // namespace quillmere::lookback
