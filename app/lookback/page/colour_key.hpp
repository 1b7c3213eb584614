// The key to the colours of a chart.
#pragma once

#include <string>
#include <vector>

namespace quillmere::lookback {

struct KeyEntry {
    std::string colourClass;  ///< of the style sheet
    std::string text;
};

std::string keyOf(const std::vector<KeyEntry>& entries);

}  // namespace quillmere::lookback
