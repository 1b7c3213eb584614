// An instant has no default value.
#include <quillmere/records/instant.hpp>

quillmere::Instant instant()
{
#ifdef AS_IT_SHOULD_BE
    quillmere::Instant none(0);
#else
    quillmere::Instant none;
#endif
    return none;
}
