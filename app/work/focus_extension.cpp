#include "work/focus_extension.hpp"

#include "amendments/change_length.hpp"
#include "amendments/possible.hpp"
#include "work/done_text.hpp"

namespace quillmere::work {

std::string_view extendFocus(QuillmereState& state, double by, amendments::TimeSinceEnd sinceEnd, Instant now)
{
    if (amendments::isPossible(amendments::Kind::goOn, state)) {
        amendments::goOn(state, by, sinceEnd, now);
        return done::focusWentOn;
    }
    amendments::changeLength(state, by, now);
    return by < 0 ? done::focusShortened : done::focusLengthened;
}

}  // namespace quillmere::work
