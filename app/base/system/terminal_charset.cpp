#include "base/system/terminal_charset.hpp"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillmere::base {
namespace {

/// The first variable that is set decides (POSIX, Environment Variables).
std::string nameOfLocale()
{
    for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* const name = std::getenv(variable);
        if (name && *name) {
            return name;
        }
    }
    return {};
}

bool namesUtf8(std::string locale)
{
    std::transform(locale.begin(), locale.end(), locale.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
}

}  // namespace

bool terminalUsesUtf8()
{
    // An object of its own: setlocale(3) would change the locale of the whole process.
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "", locale_t{});
    if (!locale) {
        return namesUtf8(nameOfLocale());
    }
    const bool isUtf8 = std::string_view(::nl_langinfo_l(CODESET, locale)) == "UTF-8";
    ::freelocale(locale);
    return isUtf8;
}

}  // namespace quillmere::base
