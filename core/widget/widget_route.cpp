// Deep links.
#include <quillmere/widget/app_group.hpp>
#include <quillmere/widget/widget_route.hpp>

#include <algorithm>

namespace quillmere {
namespace {

constexpr std::string_view linkHost = "open";

bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool contains(std::string_view characters, char c) { return characters.find(c) != std::string_view::npos; }

std::string lowerCased(std::string text)
{
    for (char& c : text) {
        c = isAlpha(c) ? static_cast<char>(c | 0x20) : c;
    }
    return text;
}

// RFC 3986, section 2: the characters that need no percent-encoding.
bool isUnreserved(char c) { return isAlpha(c) || isDigit(c) || contains("-._~", c); }
bool isSubDelimiter(char c) { return contains("!$&'()*+,;=", c); }
bool isPathCharacter(char c) { return isUnreserved(c) || isSubDelimiter(c) || contains(":@/", c); }
bool isQueryCharacter(char c) { return isPathCharacter(c) || c == '?'; }
bool isUserCharacter(char c) { return isUnreserved(c) || isSubDelimiter(c) || c == ':'; }
bool isHostCharacter(char c) { return isUnreserved(c) || isSubDelimiter(c); }

/// The value of a hexadecimal digit; absent for any other character.
std::optional<int> digitValue(char c)
{
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? std::optional(lower - 'a' + 10) : std::nullopt;
}

/// Decodes percent-encoding. Absent when a character is not allowed here or an escape is malformed.
std::optional<std::string> decoded(std::string_view text, bool (*mayStand)(char))
{
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            if (!mayStand(text[index])) {
                return std::nullopt;
            }
            result += text[index];
            continue;
        }
        if (text.size() - index < 3) {
            return std::nullopt;
        }
        const auto high = digitValue(text[index + 1]);
        const auto low = digitValue(text[index + 2]);
        if (!high || !low) {
            return std::nullopt;
        }
        result += static_cast<char>(*high * 16 + *low);
        index += 2;
    }
    return result;
}

/// Removes the text before the first of the `delimiters` from `rest` and returns it; the whole text when
/// there is no delimiter.
std::string_view takeUntil(std::string_view& rest, std::string_view delimiters)
{
    const std::string_view taken = rest.substr(0, rest.find_first_of(delimiters));
    rest.remove_prefix(taken.size());
    return taken;
}

/// Removes the scheme and its colon from `rest` and returns the scheme; absent when it is malformed.
std::optional<std::string> takeScheme(std::string_view& rest)
{
    const std::string_view scheme = takeUntil(rest, ":/?#");
    const auto mayStand = [](char c) { return isAlpha(c) || isDigit(c) || contains("+-.", c); };
    const bool wellFormed = !scheme.empty() && isAlpha(scheme.front()) && !rest.empty() &&
                            rest.front() == ':' && std::all_of(scheme.begin(), scheme.end(), mayStand);
    if (!wellFormed) {
        return std::nullopt;
    }
    rest.remove_prefix(1);
    return std::string(scheme);
}

/// The host of an authority, without user and port; absent when it is malformed. An address in brackets
/// counts as malformed, because our links never have one.
std::optional<std::string> hostOf(std::string_view authority)
{
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        if (!decoded(authority.substr(0, at), isUserCharacter)) {
            return std::nullopt;
        }
        authority.remove_prefix(at + 1);
    }
    const std::string_view host = takeUntil(authority, ":");
    if (!authority.empty() && !std::all_of(authority.begin() + 1, authority.end(), isDigit)) {
        return std::nullopt;
    }
    return decoded(host, isHostCharacter);
}

std::string_view withoutOuterSlashes(std::string_view path)
{
    const std::size_t first = path.find_first_not_of('/');
    return first == std::string_view::npos ? std::string_view()
                                           : path.substr(first, path.find_last_not_of('/') - first + 1);
}

}  // namespace

std::string url(WidgetRoute route)
{
    std::string link(QuillmereAppGroup::urlScheme);
    return link.append("://").append(linkHost).append("/").append(rawValue(route));
}

template <>
std::optional<WidgetRoute> fromURL<WidgetRoute>(std::string_view url)
{
    std::string_view rest = url;
    const std::optional<std::string> scheme = takeScheme(rest);
    if (!scheme || lowerCased(*scheme) != QuillmereAppGroup::urlScheme || rest.substr(0, 2) != "//") {
        return std::nullopt;
    }
    rest.remove_prefix(2);
    const std::optional<std::string> host = hostOf(takeUntil(rest, "/?#"));
    const std::optional<std::string> path = decoded(takeUntil(rest, "?#"), isPathCharacter);
    const std::string_view query = takeUntil(rest, "#");
    const bool restIsWellFormed = (query.empty() || decoded(query.substr(1), isQueryCharacter)) &&
                                  (rest.empty() || decoded(rest.substr(1), isQueryCharacter));
    if (!host || lowerCased(*host) != linkHost || !path || !restIsWellFormed) {
        return std::nullopt;
    }
    const std::string name = lowerCased(std::string(withoutOuterSlashes(*path)));
    return name.empty() ? WidgetRoute::idle : fromRawValue<WidgetRoute>(name);
}

}  // namespace quillmere
