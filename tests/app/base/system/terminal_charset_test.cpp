// Whether the terminal uses UTF-8.
#include "base/system/terminal_charset.hpp"

#include <gtest/gtest.h>
#include <locale.h>

#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

struct Locale {
    const char* all;
    const char* type;
    const char* language;
    bool isUtf8;
};

void expectAnswers(std::initializer_list<Locale> locales)
{
    for (const Locale& each : locales) {
        SCOPED_TRACE(std::string(each.all) + "/" + each.type + "/" + each.language);
        const EnvironmentVariable all("LC_ALL", each.all);
        const EnvironmentVariable type("LC_CTYPE", each.type);
        const EnvironmentVariable language("LANG", each.language);
        EXPECT_EQ(base::terminalUsesUtf8(), each.isUtf8);
    }
}

TEST(TerminalUsesUtf8, byTheFirstVariableThatIsSet)
{
    expectAnswers({{"", "", "C.UTF-8", true},
                   {"", "C", "C.UTF-8", false},
                   {"", "C.UTF-8", "C", true},
                   {"C", "C.UTF-8", "C.UTF-8", false},
                   {"", "", "", false}});
}

TEST(TerminalUsesUtf8, byTheNameOfALocaleThatIsNotInstalled)
{
    ASSERT_FALSE(::newlocale(LC_CTYPE_MASK, "xx_XX.UTF-8", locale_t{}));
    expectAnswers({{"", "", "xx_XX.UTF-8", true},
                   {"", "", "xx_XX.utf8", true},
                   {"", "", "xx_XX.ISO-8859-1", false},
                   {"C", "", "xx_XX.UTF-8", false}});
}

}  // namespace
}  // namespace quillmere::test
