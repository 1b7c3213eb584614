// Which version of a file there was, and which there is.
#pragma once

#include <iosfwd>

namespace quillmere::test {

/// What is there before a save.
enum class Before { noDirectory, noFile, earlierFile };

/// What is there afterwards.
enum class Version { none, older, newer, foreign };

void PrintTo(Version version, std::ostream* stream);

}  // namespace quillmere::test
