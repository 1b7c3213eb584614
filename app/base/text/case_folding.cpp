#include "base/text/case_folding.hpp"

#include "base/text/lower_case.hpp"

#include <unicase.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace quillmere::base {

std::string caseFolded(std::string_view text)
{
    // Most texts, for which the library takes several times as long.
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (std::all_of(text.begin(), text.end(), isAscii)) {
        return lowerCase(text);
    }
    std::size_t length = 0;
    const std::unique_ptr<std::uint8_t, void (*)(void*)> folded(
        ::u8_casefold(reinterpret_cast<const std::uint8_t*>(text.data()), text.size(), nullptr, nullptr,
                      nullptr, &length),
        std::free);
    return folded ? std::string(reinterpret_cast<const char*>(folded.get()), length) : std::string(text);
}

}  // namespace quillmere::base
