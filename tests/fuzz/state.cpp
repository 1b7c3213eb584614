#include <quillmere/records/quillmere_state.hpp>

#include "fuzz/json_target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::readAndWriteBack<quillmere::QuillmereState>(data, size);
    return 0;
}
