// Whether there can be earlier versions at all.
#pragma once

namespace quillmere::cli {

class Program;

/// Throws ProgramError, with the way to change that, when no versions of the files are kept: they need a
/// state home outside the directory of the files.
void requireVersionsKept(Program& program);

}  // namespace quillmere::cli
