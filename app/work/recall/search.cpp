#include "work/recall/search.hpp"

#include "base/text/case_folding.hpp"
#include "work/recall/block_account.hpp"

#include <algorithm>

namespace quillmere::work {

SearchedText::SearchedText(std::string_view text) : folded_(base::caseFolded(text)) {}

bool SearchedText::occursIn(const Block& block, const base::SeenFrom& here) const
{
    if (folded_.empty()) {
        return true;
    }
    const Recall account = accountOf(block, here);
    return std::any_of(account.begin(), account.end(), [&](const Passage& passage) {
        return std::any_of(passage.facts.begin(), passage.facts.end(), [&](const Fact& fact) {
            return base::caseFolded(fact.text).find(folded_) != std::string::npos;
        });
    });
}

}  // namespace quillmere::work
