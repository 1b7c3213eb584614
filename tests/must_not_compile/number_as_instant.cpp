// A number does not convert to an instant: it does not say from which moment its seconds count.
#include <quillmere/records/block.hpp>

quillmere::Block block()
{
#ifdef AS_IT_SHOULD_BE
    return quillmere::Block::default_(quillmere::Instant(1794754800));
#else
    return quillmere::Block::default_(1794754800.0);
#endif
}
