#include "agent/protocol/input_schema.hpp"

#include <cmath>

namespace quillmere::agent::protocol {
namespace {

/// In JSON Schema, 2.0 is an integer too.
bool isWhole(const SortedJson& value)
{
    return value.is_number_integer() ||
           (value.is_number_float() && std::trunc(value.get<double>()) == value.get<double>());
}

bool hasType(const SortedJson& value, const std::string& type)
{
    return (type == "string" && value.is_string()) || (type == "boolean" && value.is_boolean()) ||
           (type == "integer" && isWhole(value));
}

std::string misfitOfOne(const std::string& name, const SortedJson& value, const SortedJson& schema)
{
    const std::string type = schema.at("type");
    if (!hasType(value, type)) {
        return "The argument \"" + name + "\" must be of the type " + type + ".";
    }
    const bool isTooLow = schema.contains("minimum") && value < schema["minimum"];
    if (isTooLow || (schema.contains("maximum") && value > schema["maximum"])) {
        return "The argument \"" + name + "\" must be from " + schema.at("minimum").dump() + " to " +
               schema.at("maximum").dump() + ".";
    }
    return "";
}

}  // namespace

std::string misfitOf(const SortedJson& arguments, const SortedJson& inputSchema)
{
    if (!arguments.is_object()) {
        return "The arguments must be an object.";
    }
    const SortedJson properties = inputSchema.value("properties", SortedJson::object());
    for (const auto& [name, value] : arguments.items()) {
        if (!properties.contains(name)) {
            return "There is no argument \"" + name + "\".";
        }
        if (const std::string misfit = misfitOfOne(name, value, properties[name]); !misfit.empty()) {
            return misfit;
        }
    }
    for (const SortedJson& name : inputSchema.value("required", SortedJson::array())) {
        if (!arguments.contains(name)) {
            return "The argument \"" + name.get<std::string>() + "\" is missing.";
        }
    }
    return "";
}

}  // namespace quillmere::agent::protocol
