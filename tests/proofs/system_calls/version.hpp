// The versions of a file before and after a save.
#pragma once

#include <iosfwd>

namespace quillmere::test {

/// The files before a save.
enum class Before { noDirectory, noFile, earlierFile };

/// A file after a save.
enum class Version { none, older, newer, foreign };

void PrintTo(Version version, std::ostream* stream);

}  // namespace quillmere::test
