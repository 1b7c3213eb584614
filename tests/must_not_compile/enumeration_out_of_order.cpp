// The rows of an enumeration must be in case order, because a case is the index of its row.
#include <quillmere/records/base/enumeration.hpp>

enum class Colour { red, green };

template <>
struct quillmere::EnumerationTable<Colour> {
    static constexpr auto rows = std::to_array<RawText<Colour>>({
#ifdef AS_IT_SHOULD_BE
        {Colour::red, "red"},
        {Colour::green, "green"},
#else
        {Colour::green, "green"},
        {Colour::red, "red"},
#endif
    });
};

std::string_view text(Colour colour) { return quillmere::rawValue(colour); }
