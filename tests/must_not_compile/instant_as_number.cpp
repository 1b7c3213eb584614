// An instant is never a bare number: a duration is a difference of two.
#include <quillmere/records/instant.hpp>

double seconds(quillmere::Instant start, quillmere::Instant end)
{
#ifdef AS_IT_SHOULD_BE
    return end - start;
#else
    static_cast<void>(start);
    return end;
#endif
}
