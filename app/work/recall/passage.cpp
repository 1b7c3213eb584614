#include "work/recall/passage.hpp"

#include "base/text/columns.hpp"

#include <algorithm>

namespace quillmere::work {

std::size_t labelColumns(const Recall& recall)
{
    std::size_t most = 0;
    for (const Passage& passage : recall) {
        for (const Fact& fact : passage.facts) {
            most = std::max(most, base::columnsOf(fact.label));
        }
    }
    return most;
}

}  // namespace quillmere::work
