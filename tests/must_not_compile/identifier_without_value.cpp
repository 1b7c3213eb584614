// An identifier has no default value.
#include <quillmere/records/identifier.hpp>

quillmere::Identifier identifier()
{
#ifdef AS_IT_SHOULD_BE
    quillmere::Identifier none = quillmere::Identifier::random();
#else
    quillmere::Identifier none;
#endif
    return none;
}
