// UTF-8 in the C library, for libedit.
#pragma once

#include <clocale>
#include <string>

namespace quillmere::cli {

/// During its lifetime the C library takes characters for UTF-8 in this thread. libedit converts and measures
/// characters by LC_CTYPE; the rest of the program depends on no locale, so no other category changes, and
/// this one is the thread's only (uselocale(3)), not the process's.
class Utf8Locale {
public:
    /// Throws `std::system_error` when the locale C.UTF-8 is not installed.
    Utf8Locale();
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;
    ~Utf8Locale();

    static bool isAvailable();

private:
    locale_t locale_;
    locale_t before_;
};

// Both need a Utf8Locale. Characters that cannot be converted are left out.
std::wstring wideText(const std::string& text);
std::string utf8Text(const std::wstring& text);

}  // namespace quillmere::cli
