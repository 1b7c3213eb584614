// Deep links: any text opens a screen or nothing. An exception ends the target.
#include <quillmere/widget/widget_route.hpp>

#include <string>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

std::string inOtherCase(std::string_view text, char first, char last)
{
    std::string result(text);
    for (char& character : result) {
        character = character >= first && character <= last ? static_cast<char>(character ^ 0x20) : character;
    }
    return result;
}

void open(std::string_view link)
{
    const auto route = fromURL<WidgetRoute>(link);
    require(fromURL<WidgetRoute>(inOtherCase(link, 'a', 'z')) == route, "a link may be in capitals");
    require(fromURL<WidgetRoute>(inOtherCase(link, 'A', 'Z')) == route, "a link may be in small letters");
    if (link.find('#') == link.npos) {
        require(fromURL<WidgetRoute>(std::string(link) + "#part/%7e?") == route, "a fragment is ignored");
        if (link.find('?') == link.npos) {
            require(fromURL<WidgetRoute>(std::string(link) + "?a=b&%41/?") == route, "a query is ignored");
            require(!route || fromURL<WidgetRoute>(std::string(link) + "/") == route,
                    "a slash at the end is ignored");
        }
        require(!fromURL<WidgetRoute>(std::string(link) + "%"), "a broken escape is refused");
    }
    if (route) {
        require(fromURL<WidgetRoute>(url(*route)) == route, "the link of a screen opens it");
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::open(quillmere::test::textOf(data, size));
    return 0;
}
