#include "proofs/kills/leftovers.hpp"

#include <quillmere/records/identifier.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillmere::test {
namespace {

bool isHiddenTemporary(std::string_view name)
{
    constexpr std::array<std::string_view, 3> beginnings = {".state.json.", ".agent-state.json.",
                                                            ".widget-snapshot.json."};
    constexpr std::string_view end = ".tmp";
    return std::any_of(beginnings.begin(), beginnings.end(), [&](std::string_view beginning) {
        if (!name.starts_with(beginning) || !name.ends_with(end)) {
            return false;
        }
        const std::string_view middle =
            name.substr(beginning.size(), name.size() - beginning.size() - end.size());
        return Identifier::fromText(middle).has_value();
    });
}

}  // namespace

bool areHiddenTemporaries(const std::vector<std::string>& names)
{
    return std::all_of(names.begin(), names.end(), isHiddenTemporary);
}

}  // namespace quillmere::test
