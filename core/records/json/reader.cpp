#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/json/reader.hpp>
#include <quillmere/records/json/utf8.hpp>

#include <charconv>
#include <cstdint>
#include <optional>

namespace quillmere::json {
namespace {

constexpr std::uint32_t firstHighSurrogate = 0xD800;
constexpr std::uint32_t firstLowSurrogate = 0xDC00;
constexpr std::uint32_t lastLowSurrogate = 0xDFFF;

/// Replaces the escapes in the text between the quotes of a string.
class Unescaper {
public:
    explicit Unescaper(std::string_view inside) : rest_(inside) {}

    std::string run()
    {
        std::string text;
        text.reserve(rest_.size());
        while (true) {
            const std::size_t plain = rest_.find('\\');
            text.append(take(plain));
            if (rest_.empty()) {
                return text;
            }
            const char escape = take(2).back();
            if (escape == 'u') {
                appendUtf8(text, codePoint());
            } else {
                text.push_back(named(escape));
            }
        }
    }

private:
    std::string_view take(std::size_t count)
    {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    static char named(char escape)
    {
        switch (escape) {
            case '"':
            case '\\':
            case '/': return escape;
            case 'b': return '\b';
            case 'f': return '\f';
            case 'n': return '\n';
            case 'r': return '\r';
            case 't': return '\t';
            default: throwParserError(simdjson::STRING_ERROR);
        }
    }

    /// Reads a code point after "\u": four digits, and for a surrogate pair the second escape as well.
    std::uint32_t codePoint()
    {
        const std::optional<std::uint32_t> first = unit();
        if (!first) {
            throwParserError(simdjson::STRING_ERROR);
        }
        if (*first < firstHighSurrogate || *first > lastLowSurrogate) {
            return *first;
        }
        const bool paired = *first < firstLowSurrogate && take(2) == "\\u";
        const std::optional<std::uint32_t> second = paired ? unit() : std::nullopt;
        if (!second || *second < firstLowSurrogate || *second > lastLowSurrogate) {
            throw MalformedText("half of a surrogate pair");
        }
        return 0x10000 + ((*first - firstHighSurrogate) << 10) + (*second - firstLowSurrogate);
    }

    /// Reads four hexadecimal digits; absent for other characters.
    std::optional<std::uint32_t> unit()
    {
        const std::string_view digits = take(4);
        std::uint32_t value = 0;
        const auto [end, code] = std::from_chars(digits.data(), endOf(digits), value, 16);
        return digits.size() == 4 && end == endOf(digits) ? std::optional(value) : std::nullopt;
    }

    std::string_view rest_;
};

bool isScalarText(std::string_view token)
{
    return token == "null" || token == "true" || token == "false" || isNumberText(token);
}

void checkDepth(std::size_t depth)
{
    if (depth > deepestNesting) {
        throw MalformedText("containers nested too deeply");
    }
}

}  // namespace

void throwParserError(simdjson::error_code code)
{
    if (code == simdjson::MEMALLOC) {
        throw std::bad_alloc();
    }
    throw MalformedText(simdjson::error_message(code));
}

std::string unescaped(std::string_view inside) { return Unescaper(inside).run(); }

std::string unescapedKey(ondemand::field& field)
{
    const char* const begin = field.key().raw();
    const char* end = begin;
    while (*end != '"') {
        end += *end == '\\' ? 2 : 1;
    }
    return unescaped({begin, static_cast<std::size_t>(end - begin)});
}

template <class Json>
void walk(Node<Json>& node, std::size_t depth)
{
    switch (node.kind()) {
        case NodeKind::object:
            checkDepth(depth);
            for (auto result : node.object()) {
                ondemand::field field = checked(std::move(result));
                unescapedKey(field);
                Node value(field.value());
                walk(value, depth + 1);
            }
            return;
        case NodeKind::list:
            checkDepth(depth);
            for (auto result : node.list()) {
                Node element(checked(std::move(result)));
                walk(element, depth + 1);
            }
            return;
        case NodeKind::scalar: break;
    }
    if (node.isString()) {
        node.string();
    } else if (!isScalarText(node.token())) {
        throw MalformedText("a value that is no JSON value");
    }
}

template void walk(Node<ondemand::value>&, std::size_t);
template void walk(Node<ondemand::document>&, std::size_t);

std::string excerpt(std::string_view token)
{
    constexpr std::size_t longest = 60;
    if (token.size() <= longest) {
        return std::string(token);
    }
    // Cut between characters, so that the message is valid UTF-8.
    std::size_t length = 0;
    while (length < longest) {
        length += frontSequence(token.substr(length)).length;
    }
    return std::string(token.substr(0, length)) + "…";
}

}  // namespace quillmere::json
