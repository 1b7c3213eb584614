// A made-up year of work, to look back on.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::test {

/// A year of blocks and sessions as a person might have had it: work on most weekdays and some others,
/// holidays, better and worse weeks, sessions cut short, pauses, an evening that goes on past midnight. It
/// ends on the local day of `now`. The same for every call with the same `now` and time zone.
QuillmereState generatedYear(Instant now);

}  // namespace quillmere::test
