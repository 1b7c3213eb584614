#include "work/short_names.hpp"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace quillmere::work {
namespace {

std::string upperCase(std::string_view text)
{
    std::string upper;
    for (const char letter : text) {
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return upper;
}

std::size_t commonLength(const std::string& left, const std::string& right)
{
    const auto [end, other] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return static_cast<std::size_t>(end - left.begin());
}

}  // namespace

bool isNamed(const Identifier& id, std::string_view name)
{
    return name.size() >= shortestName && id.text().starts_with(upperCase(name));
}

ShortNames::ShortNames(const std::vector<Identifier>& identifiers)
{
    for (const Identifier& id : identifiers) {
        texts_.push_back(id.text());
    }
    std::sort(texts_.begin(), texts_.end());
    texts_.erase(std::unique(texts_.begin(), texts_.end()), texts_.end());
}

/// The texts that share most with one stand beside it in the order.
std::string ShortNames::of(const Identifier& id) const
{
    const std::string text = id.text();
    const auto [below, above] = std::equal_range(texts_.begin(), texts_.end(), text);
    std::size_t length = shortestName;
    if (below != texts_.begin()) {
        length = std::max(length, commonLength(text, *std::prev(below)) + 1);
    }
    if (above != texts_.end()) {
        length = std::max(length, commonLength(text, *above) + 1);
    }
    return text.substr(0, length);
}

}  // namespace quillmere::work
