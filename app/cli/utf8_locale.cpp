#include "cli/utf8_locale.hpp"

#include <array>
#include <cerrno>
#include <climits>
#include <cwchar>
#include <string_view>
#include <system_error>

namespace quillmere::cli {
namespace {

locale_t newUtf8Locale() { return ::newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{}); }

}  // namespace

Utf8Locale::Utf8Locale() : locale_(newUtf8Locale())
{
    if (!locale_) {
        throw std::system_error(errno, std::generic_category(), "newlocale");
    }
    before_ = ::uselocale(locale_);
}

Utf8Locale::~Utf8Locale()
{
    ::uselocale(before_);
    ::freelocale(locale_);
}

bool Utf8Locale::isAvailable()
{
    const locale_t locale = newUtf8Locale();
    if (locale) {
        ::freelocale(locale);
    }
    return locale != locale_t{};
}

std::wstring wideText(const std::string& text)
{
    std::wstring wide;
    std::mbstate_t state{};
    for (std::string_view rest = text; !rest.empty();) {
        wchar_t character = 0;
        const std::size_t length = std::mbrtowc(&character, rest.data(), rest.size(), &state);
        const bool isCharacter = length > 0 && length <= rest.size();
        if (isCharacter) {
            wide += character;
        } else {
            state = {};
        }
        rest.remove_prefix(isCharacter ? length : 1);
    }
    return wide;
}

std::string utf8Text(const std::wstring& text)
{
    std::string bytes;
    std::array<char, MB_LEN_MAX> character{};
    for (const wchar_t wide : text) {
        std::mbstate_t state{};
        const std::size_t length = std::wcrtomb(character.data(), wide, &state);
        if (length != static_cast<std::size_t>(-1)) {
            bytes.append(character.data(), length);
        }
    }
    return bytes;
}

}  // namespace quillmere::cli
