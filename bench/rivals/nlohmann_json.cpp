#include "rivals/dom_decode.hpp"
#include "rivals/rivals.hpp"

#include <nlohmann/json.hpp>

#include <cmath>

namespace quillmere::bench::nlohmann_json {
namespace {

using nlohmann::json;

struct Dom {
    using Value = json;

    static bool isObject(const json& node) { return node.is_object(); }
    static bool isArray(const json& node) { return node.is_array(); }
    static bool isString(const json& node) { return node.is_string(); }
    static bool isNull(const json& node) { return node.is_null(); }
    static bool isBool(const json& node) { return node.is_boolean(); }
    static bool boolean(const json& node) { return node.get<bool>(); }
    static std::string_view text(const json& node) { return node.get_ref<const std::string&>(); }

    static const json* find(const json& object, std::string_view key)
    {
        const auto found = object.find(key);
        return found == object.end() ? nullptr : &*found;
    }

    static std::optional<std::int64_t> integer(const json& node)
    {
        if (node.is_number_unsigned() && node.get<std::uint64_t>() > std::uint64_t{INT64_MAX}) {
            return std::nullopt;
        }
        if (node.is_number_integer()) {
            return node.get<std::int64_t>();
        }
        const double value = node.is_number() ? node.get<double>() : NAN;
        const bool fits = std::floor(value) == value && value >= -0x1p63 && value < 0x1p63;
        return fits ? std::optional(static_cast<std::int64_t>(value)) : std::nullopt;
    }

    static std::optional<double> number(const json& node)
    {
        return node.is_number() ? std::optional(node.get<double>()) : std::nullopt;
    }

    template <class Visit>
    static void forEach(const json& array, Visit visit)
    {
        for (const json& element : array) {
            visit(element);
        }
    }
};

template <class Value>
json tree(const Value& value)
{
    if constexpr (quillmere::json::HasTable<Value>) {
        json object = json::object();
        const auto add = [&]<class Field>(Field*) {
            const auto& member = value.*Field::member;
            if constexpr (Field::isOptional) {
                if (member) {
                    object.emplace(Field::fileKey.view(), tree(*member));
                }
            } else {
                object.emplace(Field::fileKey.view(), tree(member));
            }
        };
        [&]<class... Field>(std::tuple<Field...>*) {
            (add(static_cast<Field*>(nullptr)), ...);
        }(static_cast<quillmere::json::Fields<Value>*>(nullptr));
        return object;
    } else if constexpr (std::is_same_v<Value, Identifier>) {
        return value.text();
    } else if constexpr (std::is_same_v<Value, Instant>) {
        return dateText(value);
    } else if constexpr (RawEnumeration<Value>) {
        return rawValue(value);
    } else if constexpr (std::is_same_v<Value, double>) {
        require(std::isfinite(value));
        return value;
    } else if constexpr (std::is_same_v<Value, std::string> || std::is_integral_v<Value>) {
        return value;
    } else {
        json array = json::array();
        for (const auto& element : value) {
            array.push_back(tree(element));
        }
        return array;
    }
}

}  // namespace

QuillmereState decode(std::string_view text)
{
    return DomDecoder<Dom>::record<QuillmereState>(json::parse(text));
}

std::string encode(const QuillmereState& state)
{
    return tree(state).dump(2, ' ', false, json::error_handler_t::replace);
}

}  // namespace quillmere::bench::nlohmann_json
