// A number cannot be assigned to an instant.
#include <quillmere/records/block.hpp>

void schedule(quillmere::Block& block)
{
#ifdef AS_IT_SHOULD_BE
    block.createdAt = quillmere::Instant(1794754800);
#else
    block.createdAt = 1794754800.0;
#endif
}
