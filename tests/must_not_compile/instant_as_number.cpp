// An instant does not convert to a number: a number of seconds is the difference of two instants.
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
