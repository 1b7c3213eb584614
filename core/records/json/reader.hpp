// The place where JSON text is taken apart: everything that depends on the parser stands here and in
// reader.cpp.
//
// The parser finds the tokens, checks UTF-8, string ends and control characters in one pass over the
// whole text, and then hands out values one by one. What it does not look at by itself is checked
// here token by token, and values that nobody asks for are walked, so that malformed text fails
// wherever it stands.
#pragma once

#include <quillmere/records/base/bytes.hpp>
#include <quillmere/records/json/coding_error.hpp>

#include <simdjson.h>

#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quillmere::json {

namespace ondemand = simdjson::ondemand;

/// Deepest nesting of a text, the outermost container included.
inline constexpr std::size_t deepestNesting = 1024;

/// The text is not JSON. Not a matter of one record's fields, so it passes by all that collect errors
/// of fields; turned into a DecodingError at the top.
class MalformedText : public std::exception {
public:
    explicit MalformedText(const char* reason) noexcept : reason_(reason) {}
    const char* what() const noexcept override { return reason_; }

private:
    const char* reason_;  ///< static text
};

[[noreturn]] void throwParserError(simdjson::error_code code);

/// The value of a parser's result; throws MalformedText, or `std::bad_alloc`, when it holds an error.
template <class Value>
Value checked(simdjson::simdjson_result<Value>&& result)
{
    if (const simdjson::error_code code = result.error()) {
        throwParserError(code);
    }
    return std::move(result).value_unsafe();
}

inline std::string_view withoutTrailingSpace(std::string_view text)
{
    const auto isSpace = [](char c) { return c <= ' ' && (c == ' ' || c == '\n' || c == '\t' || c == '\r'); };
    std::size_t length = text.size();
    while (length > 0 && isSpace(text[length - 1])) {
        --length;
    }
    return text.substr(0, length);
}

inline const char* endOf(std::string_view text) { return text.data() + text.size(); }

/// What the inside of a string with escapes stands for. Throws MalformedText for an escape that does
/// not exist and for half of a surrogate pair.
std::string unescaped(std::string_view inside);

enum class NodeKind { object, list, scalar };

/// A value inside the document (`ondemand::value`) or the document itself (`ondemand::document`), and
/// the text of its first token: a bracket and the space after it, or a whole scalar. Consumed by
/// reading it once.
template <class Json>
class Node {
public:
    explicit Node(Json json) : json_(std::move(json)), token_(rawToken())
    {
        if (kind() == NodeKind::scalar) {
            token_ = withoutTrailingSpace(token_);
        }
    }

    std::string_view token() const { return token_; }

    NodeKind kind() const
    {
        switch (token_.front()) {
            case '{': return NodeKind::object;
            case '[': return NodeKind::list;
            default: return NodeKind::scalar;
        }
    }
    bool isString() const { return token_.front() == '"' && token_.back() == '"' && token_.size() >= 2; }
    bool isNull() const { return token_ == "null"; }

    ondemand::object object() { return checked(json_.get_object()); }
    ondemand::array list() { return checked(json_.get_array()); }

    /// What a string stands for.
    std::string string()
    {
        const std::string_view inside = stringInside();
        if (inside.find('\\') == inside.npos) {
            return std::string(inside);
        }
        return unescaped(inside);
    }

    /// What `parse`, which takes no text with a backslash, makes of a string; so escapes need only be
    /// looked for in a string that it does not take as it stands.
    template <class Parse>
    auto parsedString(Parse parse)
    {
        const std::string_view inside = stringInside();
        auto value = parse(inside);
        return value || inside.find('\\') == inside.npos ? value : parse(unescaped(inside));
    }

    /// Whether nothing follows, once the node has been read.
    bool atEnd(std::string_view document)
    {
        // Past its last token a document has no location left; a scalar document is its only token.
        return kind() == NodeKind::scalar ? endOf(token_) == endOf(withoutTrailingSpace(document))
                                          : json_.current_location().error() == simdjson::OUT_OF_BOUNDS;
    }

private:
    /// What stands between the quotes of a string.
    std::string_view stringInside()
    {
        checked(json_.get_raw_json_string());
        return token_.substr(1, token_.size() - 2);
    }

    std::string_view rawToken()
    {
        if constexpr (std::is_same_v<Json, ondemand::value>) {
            return json_.raw_json_token();
        } else {
            return checked(json_.raw_json_token());
        }
    }

    Json json_;
    std::string_view token_;
};

/// A field's key with its escapes resolved and checked.
std::string unescapedKey(ondemand::field& field);

/// Goes through a value that nobody asked for, which lies `depth` containers deep if it is one, and
/// throws MalformedText unless all of it is well-formed.
template <class Json>
void walk(Node<Json>& node, std::size_t depth);

/// A short form of a token for messages.
std::string excerpt(std::string_view token);

/// Checks what is left of a node that is not what was `expected`, and throws the DecodingError.
template <class Json>
[[noreturn]] void mismatch(Node<Json>& node, std::string expected, std::size_t depth)
{
    walk(node, depth);
    switch (node.kind()) {
        case NodeKind::object: throw DecodingError(std::move(expected), "an object");
        case NodeKind::list: throw DecodingError(std::move(expected), "a list");
        case NodeKind::scalar: break;
    }
    throw DecodingError(std::move(expected), excerpt(node.token()));
}

/// Parses `text` and hands the document to `read`, which must consume its value; nothing may follow.
template <class Read>
void readDocument(const Bytes& text, Read read)
{
    static_assert(Bytes::slack >= simdjson::SIMDJSON_PADDING);
    ondemand::parser parser;
    try {
        if (const auto code = parser.allocate(text.size(), deepestNesting + 1)) {
            throwParserError(code);
        }
        Node document(checked(parser.iterate(text.view().data(), text.size(), text.size() + Bytes::slack)));
        std::optional<DecodingError> mismatched;
        try {
            read(document);
        } catch (DecodingError& error) {
            // Read to its end all the same: what follows decides whether it is JSON at all.
            mismatched = std::move(error);
        }
        if (!document.atEnd(text.view())) {
            throw MalformedText("text after the document's end");
        }
        if (mismatched) {
            throw *std::move(mismatched);
        }
    } catch (const MalformedText& malformed) {
        throw DecodingError("well-formed JSON", malformed.what());
    }
}

}  // namespace quillmere::json
