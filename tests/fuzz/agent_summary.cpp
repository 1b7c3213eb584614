#include <quillmere/store/agent_snapshot.hpp>

#include "fuzz/json_target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::readAndWriteBack<quillmere::AgentSnapshot>(data, size);
    return 0;
}
