// Reads JSON text with the parser. Only this header and reader.cpp depend on the parser.
//
// The parser first scans the whole text: it finds the tokens and checks UTF-8, string ends and control
// characters. It then returns the values one by one, without checking values that are skipped. So this code
// checks each token and walks through the values of unknown keys: malformed text is an error everywhere.
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

/// The deepest nesting that is accepted, the outermost container included.
inline constexpr std::size_t deepestNesting = 1024;

/// The text is not JSON. Not a DecodingError, so the code that collects the errors of fields does not catch
/// it; `readDocument` converts it to a DecodingError.
class MalformedText : public std::exception {
public:
    explicit MalformedText(const char* reason) noexcept : reason_(reason) {}
    const char* what() const noexcept override { return reason_; }

private:
    const char* reason_;  ///< static text
};

/// A value that is not as its field expects, or is missing, while the text is being read.
class Mismatch : public DecodingError {
public:
    /// `place` points to the value in the text, or to the object that lacks it.
    Mismatch(std::string expected, std::string found, const char* place)
        : DecodingError(std::move(expected), std::move(found)), place_(place)
    {
    }

    const char* place() const noexcept { return place_; }

private:
    const char* place_;
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

/// The text between the quotes of a string with its escapes replaced. Throws MalformedText for an unknown
/// escape and for half of a surrogate pair.
std::string unescaped(std::string_view inside);

enum class NodeKind { object, list, scalar };

/// A value in the document (`ondemand::value`) or the document itself (`ondemand::document`), with the text
/// of its first token: a bracket and the space after it, or a whole scalar. It can be read once.
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

    /// The text of a string, without quotes and escapes.
    std::string string()
    {
        const std::string_view inside = stringInside();
        if (inside.find('\\') == inside.npos) {
            return std::string(inside);
        }
        return unescaped(inside);
    }

    /// The result of `parse` for the text of a string. `parse` must refuse a text with a backslash: escapes
    /// are replaced only after it has refused the text as it stands.
    template <class Parse>
    auto parsedString(Parse parse)
    {
        const std::string_view inside = stringInside();
        auto value = parse(inside);
        return value || inside.find('\\') == inside.npos ? value : parse(unescaped(inside));
    }

    /// Whether the document ends after this node, which must have been read.
    bool atEnd(std::string_view document)
    {
        // After the last token the parser has no location. A scalar document is a single token.
        return kind() == NodeKind::scalar ? endOf(token_) == endOf(withoutTrailingSpace(document))
                                          : json_.current_location().error() == simdjson::OUT_OF_BOUNDS;
    }

private:
    /// The text between the quotes of a string.
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

/// The key of a field with its escapes replaced and checked.
std::string unescapedKey(ondemand::field& field);

/// Reads a value that no field needs, and throws MalformedText unless all of it is well-formed. `depth` is
/// the nesting depth of the value if it is a container.
template <class Json>
void walk(Node<Json>& node, std::size_t depth);

/// A short form of a token for messages.
std::string excerpt(std::string_view token);

/// Throws the Mismatch for a node that is not as `expected`, after it has checked that the node is
/// well-formed.
template <class Json>
[[noreturn]] void mismatch(Node<Json>& node, std::string expected, std::size_t depth)
{
    walk(node, depth);
    const char* const place = node.token().data();
    switch (node.kind()) {
        case NodeKind::object: throw Mismatch(std::move(expected), "an object", place);
        case NodeKind::list: throw Mismatch(std::move(expected), "a list", place);
        case NodeKind::scalar: break;
    }
    throw Mismatch(std::move(expected), excerpt(node.token()), place);
}

/// Parses `text` and calls `read` with the document. `read` must read the whole value; no text may follow.
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
        } catch (Mismatch& error) {
            // Thrown below: first the rest of the text is checked, because malformed text is the more
            // important error.
            error.setOffset(static_cast<std::size_t>(error.place() - text.view().data()));
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
