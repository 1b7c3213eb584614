// Two copies of a focus session.
#pragma once

#include <quillmere/records/work_session.hpp>

#include <compare>

namespace quillmere::merge {

/// Which copy has come further; that one is kept. Reviewed comes after ended, ended after open; then the
/// longer pauses, then the later pause and the later end, then the bytes. The number does not matter: a
/// joined block numbers its sessions anew.
std::strong_ordering compareProgress(const WorkSession& one, const WorkSession& other);

/// Whether two copies are the same but for their numbers.
bool isSame(const WorkSession& one, const WorkSession& other);

/// Ends an open session that nobody goes on with: at its pause, at its planned end, or when its side was
/// saved, whichever is earliest.
void endAbandoned(WorkSession& session, Instant savedAt);

}  // namespace quillmere::merge
