#include "base/text/case_folding.hpp"

#include <unicase.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace quillmere::base {

std::string caseFolded(std::string_view text)
{
    std::size_t length = 0;
    const std::unique_ptr<std::uint8_t, void (*)(void*)> folded(
        ::u8_casefold(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), nullptr, nullptr,
                      nullptr, &length),
        std::free);
    return folded ? std::string(reinterpret_cast<const char*>(folded.get()), length) : std::string(text);
}

}  // namespace quillmere::base
