// A source reads its value later, so the value must not be a temporary.
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

quillmere::ByteSource source(const quillmere::QuillmereState& state)
{
    const quillmere::JsonEncoder encoder(quillmere::JsonLayout::pretty);
#ifdef AS_IT_SHOULD_BE
    return encoder.source(state);
#else
    return encoder.source(quillmere::QuillmereState(state));
#endif
}
