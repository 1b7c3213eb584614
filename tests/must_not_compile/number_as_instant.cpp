// A bare number is never an instant: seconds since when, one would have to guess.
#include <quillmere/records/block.hpp>

quillmere::Block block()
{
#ifdef AS_IT_SHOULD_BE
    return quillmere::Block::default_(quillmere::Instant(1794754800));
#else
    return quillmere::Block::default_(1794754800.0);
#endif
}
