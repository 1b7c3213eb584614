// Parts of sentences.
#pragma once

#include <cstdint>
#include <string>

namespace quillmere::doctor {

/// "512 bytes", "3.4 kB", "12 GB" (powers of 1000).
std::string sizeText(std::uintmax_t bytes);

/// The text with a full stop at its end, unless it has one.
std::string sentence(std::string text);

}  // namespace quillmere::doctor
