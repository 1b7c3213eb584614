// A text does not convert to an identifier: it may not be one, so fromText returns an optional.
#include <quillmere/records/outcome.hpp>

quillmere::Outcome outcome()
{
#ifdef AS_IT_SHOULD_BE
    return {.id = *quillmere::Identifier::fromText("9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10"), .title = ""};
#else
    return {.id = "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10", .title = ""};
#endif
}
