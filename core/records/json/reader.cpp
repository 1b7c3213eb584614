#include <quillmere/records/json/number_text.hpp>
#include <quillmere/records/json/reader.hpp>
#include <quillmere/records/json/utf8.hpp>

namespace quillmere::json {
namespace {

/// The unit of a \uXXXX escape whose four digits stand at the front of `digits`; 0, which is no
/// surrogate, when they are not four digits: the parser refuses that itself.
unsigned escapedUnit(std::string_view digits)
{
    unsigned unit = 0;
    for (std::size_t index = 0; index < 4; ++index) {
        const char digit = index < digits.size() ? digits[index] : '\0';
        unit *= 16;
        if (digit >= '0' && digit <= '9') {
            unit += static_cast<unsigned>(digit - '0');
        } else if ((digit | 0x20) >= 'a' && (digit | 0x20) <= 'f') {
            unit += static_cast<unsigned>((digit | 0x20) - 'a') + 10;
        } else {
            return 0;
        }
    }
    return unit;
}

bool isHighSurrogate(unsigned unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(unsigned unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

constexpr std::size_t unitEscapeLength = 6;  // \uXXXX

/// The unit of the escape at the front of `text`; 0 when none stands there.
unsigned unitEscapeAt(std::string_view text)
{
    return text.substr(0, 2) == "\\u" ? escapedUnit(text.substr(2)) : 0;
}

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

void checkSurrogates(std::string_view inside)
{
    for (std::size_t index = inside.find('\\'); index != std::string_view::npos; index = inside.find('\\', index)) {
        const unsigned unit = unitEscapeAt(inside.substr(index));
        if (isHighSurrogate(unit)) {
            index += unitEscapeLength;
            if (index > inside.size() || !isLowSurrogate(unitEscapeAt(inside.substr(index)))) {
                throw MalformedText("half of a surrogate pair");
            }
            index += unitEscapeLength;
        } else if (isLowSurrogate(unit)) {
            throw MalformedText("half of a surrogate pair");
        } else {
            index += 2;
        }
    }
}

std::string_view unescapedKey(ondemand::field& field)
{
    const char* const begin = field.key().raw();
    const char* end = begin;
    while (*end != '"') {
        end += *end == '\\' ? 2 : 1;
    }
    checkSurrogates({begin, static_cast<std::size_t>(end - begin)});
    return checked(field.unescaped_key());
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
    // Cut between characters: the message is text as well.
    std::size_t length = 0;
    while (length < longest) {
        length += frontSequence(token.substr(length)).length;
    }
    return std::string(token.substr(0, length)) + "…";
}

}  // namespace quillmere::json
