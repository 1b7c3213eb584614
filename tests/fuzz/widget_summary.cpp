#include <quillmere/widget/widget_snapshot.hpp>

#include "fuzz/json_target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::readAndWriteBack<quillmere::WidgetSnapshot>(data, size);
    return 0;
}
