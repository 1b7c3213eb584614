// Identifiers as text, compared with a simple reader of the canonical form.
#include <quillmere/records/identifier.hpp>

#include <cctype>
#include <cstring>
#include <string>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

bool isCanonical(std::string_view text)
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isHyphen = index == 8 || index == 13 || index == 18 || index == 23;
        const auto character = static_cast<unsigned char>(text[index]);
        if (isHyphen ? character != '-' : !std::isxdigit(character)) {
            return false;
        }
    }
    return text.size() == 36;
}

std::string upperCased(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        result += static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    }
    return result;
}

void readText(std::string_view text)
{
    const std::optional<Identifier> identifier = Identifier::fromText(text);
    require(identifier.has_value() == isCanonical(text), "exactly the canonical form is read");
    if (identifier) {
        require(identifier->text() == upperCased(text), "an identifier is written in capitals");
        require(Identifier::fromText(identifier->text()) == identifier, "and reads back equal");
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quillmere;
    test::readText(test::textOf(data, size));
    Identifier::Octets bytes{};
    if (size >= bytes.size()) {
        std::memcpy(bytes.data(), data, bytes.size());
        const Identifier identifier(bytes);
        test::require(Identifier::fromText(identifier.text()) == identifier, "any 128 bits read back equal");
    }
    return 0;
}
