// The first characters of identifiers, as names that a person types.
#pragma once

#include <quillmere/records/identifier.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::work {

inline constexpr std::size_t shortestName = 4;

/// Whether the identifier begins with the name, in either case, and the name has at least four characters.
bool isNamed(const Identifier& id, std::string_view name);

/// The short names of some identifiers.
class ShortNames {
public:
    explicit ShortNames(const std::vector<Identifier>& identifiers);

    /// The first characters of one of the identifiers: at least four, and as many as it takes to tell it from
    /// every other.
    std::string of(const Identifier& id) const;

private:
    std::vector<std::string> texts_;  ///< in order, each once
};

}  // namespace quillmere::work
