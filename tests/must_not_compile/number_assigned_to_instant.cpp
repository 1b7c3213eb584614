// A bare number is never an instant, also where one is there already.
#include <quillmere/records/block.hpp>

void schedule(quillmere::Block& block)
{
#ifdef AS_IT_SHOULD_BE
    block.createdAt = quillmere::Instant(1794754800);
#else
    block.createdAt = 1794754800.0;
#endif
}
