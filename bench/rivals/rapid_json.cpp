#include "rivals/dom_decode.hpp"
#include "rivals/rivals.hpp"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <cmath>

namespace quillmere::bench::rapid_json {
namespace {

struct Dom {
    using Value = rapidjson::Value;

    static bool isObject(const Value& node) { return node.IsObject(); }
    static bool isArray(const Value& node) { return node.IsArray(); }
    static bool isString(const Value& node) { return node.IsString(); }
    static bool isNull(const Value& node) { return node.IsNull(); }
    static bool isBool(const Value& node) { return node.IsBool(); }
    static bool boolean(const Value& node) { return node.GetBool(); }
    static std::string_view text(const Value& node) { return {node.GetString(), node.GetStringLength()}; }

    static const Value* find(const Value& object, std::string_view key)
    {
        const Value name(rapidjson::StringRef(key.data(), static_cast<rapidjson::SizeType>(key.size())));
        const auto found = object.FindMember(name);
        return found == object.MemberEnd() ? nullptr : &found->value;
    }

    static std::optional<std::int64_t> integer(const Value& node)
    {
        if (node.IsInt64()) {
            return node.GetInt64();
        }
        const double value = node.IsDouble() ? node.GetDouble() : NAN;
        const bool fits = std::floor(value) == value && value >= -0x1p63 && value < 0x1p63;
        return fits ? std::optional(static_cast<std::int64_t>(value)) : std::nullopt;
    }

    static std::optional<double> number(const Value& node)
    {
        return node.IsNumber() ? std::optional(node.GetDouble()) : std::nullopt;
    }

    template <class Visit>
    static void forEach(const Value& array, Visit visit)
    {
        for (const Value& element : array.GetArray()) {
            visit(element);
        }
    }
};

// Without the check of the encoding, which does not compile with this class: less work, to RapidJSON's
// advantage.
using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writeText(Writer& writer, std::string_view text)
{
    require(writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size())));
}

template <class Value>
void write(Writer& writer, const Value& value)
{
    if constexpr (json::HasTable<Value>) {
        writer.StartObject();
        const auto add = [&]<class Field>(Field*) {
            const auto key = Field::fileKey.view();
            const auto& member = value.*Field::member;
            if constexpr (Field::isOptional) {
                if (member) {
                    writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
                    write(writer, *member);
                }
            } else {
                writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
                write(writer, member);
            }
        };
        [&]<std::size_t... places>(std::index_sequence<places...>)
        {
            (add(static_cast<json::FieldAt<Value, json::sortedRows<Value>[places]>*>(nullptr)), ...);
        }
        (std::make_index_sequence<std::tuple_size_v<json::Fields<Value>>>{});
        writer.EndObject();
    } else if constexpr (std::is_same_v<Value, Identifier>) {
        writeText(writer, value.text());
    } else if constexpr (std::is_same_v<Value, Instant>) {
        writeText(writer, dateText(value));
    } else if constexpr (RawEnumeration<Value>) {
        writeText(writer, rawValue(value));
    } else if constexpr (std::is_same_v<Value, double>) {
        require(writer.Double(value));
    } else if constexpr (std::is_same_v<Value, std::string>) {
        writeText(writer, value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        writer.Bool(value);
    } else if constexpr (std::is_integral_v<Value>) {
        writer.Int64(value);
    } else {
        writer.StartArray();
        for (const auto& element : value) {
            write(writer, element);
        }
        writer.EndArray();
    }
}

}  // namespace

QuillmereState decode(std::string_view text)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag | rapidjson::kParseFullPrecisionFlag>(text.data(),
                                                                                               text.size());
    require(!document.HasParseError());
    return DomDecoder<Dom>::record<QuillmereState>(document);
}

std::string encode(const QuillmereState& state)
{
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.SetIndent(' ', 2);
    write(writer, state);
    return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace quillmere::bench::rapid_json
