// The spread of a measurement.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace quillmere::bench {

struct Quartiles {
    double lower;
    double median;
    double upper;
};

/// `values` must not be empty.
inline Quartiles quartilesOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t last = values.size() - 1;
    return {.lower = values[last / 4], .median = values[last / 2], .upper = values[last - last / 4]};
}

}  // namespace quillmere::bench
