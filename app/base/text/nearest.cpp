#include "base/text/nearest.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace quillmere::base {

std::size_t editDistance(std::string_view one, std::string_view other)
{
    // Rows of the table of distances between the beginnings of both words: the present one and two before it.
    std::vector<std::size_t> row(other.size() + 1);
    std::vector<std::size_t> above(row.size());
    std::vector<std::size_t> twoAbove(row.size());
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= one.size(); ++i) {
        twoAbove = std::exchange(above, row);
        row[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t replaced = above[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1]) {
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
            }
        }
    }
    return row.back();
}

std::optional<std::string> nearest(std::string_view word, const std::vector<std::string>& known)
{
    const auto closest = std::min_element(known.begin(), known.end(),
                                          [word](const std::string& one, const std::string& other) {
                                              return editDistance(word, one) < editDistance(word, other);
                                          });
    const std::size_t allowed = std::max(word.size() / 3, std::size_t{1});
    const bool isClose = closest != known.end() && editDistance(word, *closest) <= allowed;
    return isClose ? std::optional(*closest) : std::nullopt;
}

}  // namespace quillmere::base
