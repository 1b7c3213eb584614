// Arguments that fit a schema, and the message about those that do not.
#include "agent/protocol/input_schema.hpp"

#include <gtest/gtest.h>

namespace quillmere::agent::protocol {
namespace {

const SortedJson schema = SortedJson::parse(R"({
    "type": "object",
    "additionalProperties": false,
    "required": ["text"],
    "properties": {
        "text": {"type": "string"},
        "count": {"type": "integer", "minimum": 0, "maximum": 600},
        "flag": {"type": "boolean"}
    }
})");

constexpr const char* fitting[] = {
    R"({"text": ""})",
    R"({"text": "a", "count": 0, "flag": false})",
    R"({"text": "a", "count": 600})",
    R"({"text": "a", "count": 30.0})",
};

TEST(InputSchema, acceptsArgumentsThatFit)
{
    for (const char* arguments : fitting) {
        EXPECT_EQ(misfitOf(SortedJson::parse(arguments), schema), "") << arguments;
    }
}

constexpr struct {
    const char* arguments;
    const char* misfit;
} unfitting[] = {
    {R"([])", "The arguments must be an object."},
    {R"(null)", "The arguments must be an object."},
    {R"({})", "The argument \"text\" is missing."},
    {R"({"text": null})", "The argument \"text\" must be of the type string."},
    {R"({"text": 1})", "The argument \"text\" must be of the type string."},
    {R"({"text": "a", "flag": "true"})", "The argument \"flag\" must be of the type boolean."},
    {R"({"text": "a", "count": "1"})", "The argument \"count\" must be of the type integer."},
    {R"({"text": "a", "count": 1.5})", "The argument \"count\" must be of the type integer."},
    {R"({"text": "a", "count": true})", "The argument \"count\" must be of the type integer."},
    {R"({"text": "a", "count": -1})", "The argument \"count\" must be from 0 to 600."},
    {R"({"text": "a", "count": 601})", "The argument \"count\" must be from 0 to 600."},
    {R"({"text": "a", "count": 1e300})", "The argument \"count\" must be from 0 to 600."},
    {R"({"text": "a", "count": 18446744073709551615})", "The argument \"count\" must be from 0 to 600."},
    {R"({"text": "a", "other": 1})", "There is no argument \"other\"."},
};

TEST(InputSchema, saysWhyAnArgumentDoesNotFit)
{
    for (const auto& [arguments, misfit] : unfitting) {
        EXPECT_EQ(misfitOf(SortedJson::parse(arguments), schema), misfit) << arguments;
    }
}

TEST(InputSchema, withoutPropertiesAcceptsNoArgument)
{
    const SortedJson nothing = {{"type", "object"}, {"additionalProperties", false}};
    EXPECT_EQ(misfitOf(SortedJson::object(), nothing), "");
    EXPECT_EQ(misfitOf({{"a", 1}}, nothing), "There is no argument \"a\".");
}

}  // namespace
}  // namespace quillmere::agent::protocol
