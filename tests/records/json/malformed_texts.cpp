#include "records/json/malformed_texts.hpp"

namespace quillmere::test {
namespace {

using namespace std::string_literals;

std::vector<std::string> makeStringContents()
{
    // clang-format off
    std::vector<std::string> contents = {
        // Escapes.
        R"(\)", R"(\a)", R"(\x41)", R"(\')", R"(\0)", R"(\U0041)", R"(\ )", R"(\N)", "\\\n", "\\\xC3\xA9",
        R"(\u)", R"(\u1)", R"(\u12)", R"(\u123)", R"(\u12G4)", R"(\uG123)", R"(\u 123)", R"(\u+123)",
        R"(\u-123)", R"(\u0x41)", R"(\\\)", R"(\\\u)", R"(\u004\u0041)",
        // Half of a surrogate pair, at the end and before other characters.
        R"(\ud800)", R"(\uD83D)", R"(\udbff)", R"(\udc00)", R"(\uDE00)", R"(\uDFFF)", R"(\ud800x)",
        R"(x\udc00x)", R"(\ud800\n)", R"(\ud800\\)", R"(\ud800\u0041)", R"(\ud800\ud800)",
        R"(\udc00\ud800)", R"(\udc00\udc00)", R"(\ud800\ud800\udc00)", R"(\ud83d\ude00\ude00)",
        R"(\ud83d\ude00\ud83d)", R"(\ud800\\udc00)", R"(\ud800udc00)", R"(\ud800 \udc00)", R"(\ud800\u)",
        R"(\ud800\udc)", R"(\ud800\udg00)", R"(\\\ud800)", R"(\ud800\/)", R"(\uD800\uE000)",
        R"(\uD800\uDBFF)",
        // Not UTF-8.
        "\x80", "a\xBF", "\xC0\xAF", "\xC1\x81", "\xC3", "\xC3(", "\xE9", "\xE0\x80\xAF", "\xE2\x82",
        "\xE2\x82(", "\xED\xA0\x80", "\xED\xBF\xBF", "\xED\xA0\xBD\xED\xB8\x80", "\xF0\x80\x80\x80",
        "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF\xFF", "abc\xC3\xA9\x80",
        "\xC3\xA9\xC3",
    };
    // clang-format on
    // Control characters without an escape, alone and far from the beginning.
    for (char code = 0; code < 0x20; ++code) {
        contents.emplace_back(1, code);
        contents.push_back(std::string(70, 'a') + code + "b");
    }
    return contents;
}

std::vector<std::string> makeValues()
{
    // clang-format off
    std::vector<std::string> values = {
        // Empty text, and words.
        "", " ", "nan", "NaN", "-NaN", "Infinity", "-Infinity", "inf", "undefined", "None", "nil", "True",
        "TRUE", "False", "Null", "NULL", "nul", "nulll", "nullnull", "null null", "tru", "truee", "true1",
        "fals", "falsey", "t", "f", "n", "truefalse", "yes", "abc", "\xC3\xA9",
        // Numbers.
        "+1", "+0", ".5", "-.5", "1.", "-1.", "1.e5", "-", "--1", "-+1", "- 1", "-a", "01", "-01", "00",
        "-00", "007", "0123.5", "01e5", "1e", "1e+", "1E-", "1e5.5", "1e5e5", "e5", "1e 5", "0x10", "0b1",
        "0o7", "1_000", "1'000", "1 000", "1,000", "1a", "1f", "1L", "1-2", "1+2", "1..2", "1.5.5", "1 2",
        "1.5 .5", "0.", "0.e1", "1.a", "\xD9\xA3", "\xC2\xBD", "\xEF\xBC\x91", "\xE2\x88\x92" "1", "$1",
        "1%",
        // Strings.
        "'a'", "\"a", "a\"", "\"a\"b\"", "\"a\"\"b\"", "\"a\" \"b\"", "\"a'", "`a`", "\"\"\"",
        "\xE2\x80\x9C" "a\xE2\x80\x9D", "\"a\"x", "x\"a\"", "\"a\"1", "1\"a\"", "\\\"a\\\"", "\\u0041",
        "\"",
        // Lists.
        "[", "]", "[[]", "[]]", "[1,]", "[,1]", "[,]", "[1,,2]", "[1 2]", "[1;2]", "[\"a\" \"b\"]",
        "[\"a\":1]", "[1}", "[1", "1]", "[1,", "[1]2", "[] []", "[][]", "[],[]]", "[1],", "(1)",
        "[true false]", "[null,nul]", "[1,[2,[3,]]]", "[\"a\",]", "[{},]", "[[],]", "[-]", "[.5]",
        "[1e400,01]", "[\"\\ud800\"]", "[+1]", "[[[[nan]]]]",
        // Objects.
        "{", "}", "{}}", "{{}", "{{}}", "{[]}", "{1}", "{\"a\"}", "{\"a\":}", "{:1}", "{\"a\" 1}",
        "{\"a\"::1}", "{\"a\":1,}", "{,}", "{,\"a\":1}", "{\"a\":1,,\"b\":2}", "{\"a\":1 \"b\":2}",
        "{\"a\":1;\"b\":2}", "{\"a\"=1}", "{\"a\",1}", "{a:1}", "{'a':1}", "{1:1}", "{null:1}", "{true:1}",
        "{[]:1}", "{\"a\":1", "{\"a\":1]", "\"a\":1}", "{\"a\":1}{}", "{} {}", "{},{}}",
        "{\"a\":{\"b\":[1,]}}", "{\"a\":{\"b\":}}", "{\"a\":01}", "{\"a\":1:2}", "{\"a\":1,\"b\"}",
        "{\"a\":\"b\":\"c\"}", "{\"a\":[}", "{\"a\":[}]", "{\"a\":nan}", "{\"a\"\"b\":1}",
        // Comments, and white space that is not JSON's.
        "/* c */1", "1/* c */", "1//c", "//c\n1", "#c\n1", "1#", "<!-- c -->1", "--c\n1", "[1,/**/2]",
        "{/**/}", "\f1", "\v1", "1\f", "\xC2\xA0" "1", "1\xC2\xA0", "\xE2\x80\xA8" "1", "\xE2\x80\x8B" "1",
        "1\xEF\xBB\xBF", "\0"s, "\0" "1"s, "1\0"s, "\x1B" "1", "\x7F", "[\0]"s, "{\0}"s,
        // Ill-formed UTF-8 outside strings.
        "\x80", "\xFF", "1\xC3", "[\xE9]", "\xED\xA0\x80",
    };
    // clang-format on
    for (const std::string& content : malformedStringContents()) {
        values.push_back('"' + content + '"');
        values.push_back("[1,\"" + content + "\"]");
        values.push_back("{\"" + content + "\":1}");
        values.push_back("{\"a\":1,\"b\":{\"" + content + "\":{}}}");
    }
    return values;
}

}  // namespace

const std::vector<std::string>& malformedStringContents()
{
    static const std::vector<std::string> contents = makeStringContents();
    return contents;
}

const std::vector<std::string>& malformedValues()
{
    static const std::vector<std::string> values = makeValues();
    return values;
}

const std::vector<std::string>& oddValues()
{
    // clang-format off
    static const std::vector<std::string> values = {
        "null", "true", "false", "0", "-0", "-0.0", "0e0", "0E+0", "1e5", "1E5", "1e+5", "1e-5", "1e05",
        "1e00005", "1.0e+00", "-1.5E-10",
        // Too large for any number type.
        "1e400", "-1e400", "1e-400", "1e999999999999999999999", "1e-999999999999999999999",
        "9223372036854775808", "-9223372036854775809", "18446744073709551615", "18446744073709551616",
        "340282366920938463463374607431768211456", std::string(1000, '9'), '-' + std::string(1000, '9'),
        "0." + std::string(1000, '3'),
        std::string(400, '9') + '.' + std::string(400, '9') + "e-" + std::string(400, '9'), R"("")",
        R"("a")", R"("\"\\\/\b\f\n\r\t\u0000\u001F")", R"("\ud83d\ude00\uD83D\uDE00")", R"("\\ud800")",
        R"("\uFFFF\uFFFE")", "\"\x7F\"", "\"\xC2\x80\"", "\"\xE2\x80\xA8\"", "\"\xEF\xBB\xBF\"",
        "\"\xEF\xBF\xBF\"", "\"\xF4\x8F\xBF\xBF\"", R"("{")", R"("]")", R"("//")", R"(",")", R"(":")",
        R"("\"")", "[]", "{}", "[ ]", "{ }", "[[]]", "[{}]", "[[],[]]", "[1 , 2]", "[ 1,2 ]",
        "[\t1\n,\r2 ]", "{\"a\" : 1 , \"b\" : 2}", R"({"":1})", R"({"":{"":{}}})", R"({"a":1,"a":2})",
        R"({"a":1,"\u0061":2})", R"({"id":"x","\\":"\\"})", R"({"\ud83d\ude00":[]})", R"({"\n":1})",
        R"({"\u0000":1})", "{\"\xC3\xA4\":1}", R"([1,"a",null,true,[],{}])",
        "[0,-1,1.5,1e5,\"\",[[[]]],{\"a\":{\"b\":[{}]}}]",
    };
    // clang-format on
    return values;
}

std::string repeated(std::string_view text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (; count > 0; --count) {
        all += text;
    }
    return all;
}

std::string nested(std::string_view open, std::string_view close, std::size_t depth)
{
    return repeated(open, depth) + repeated(close, depth);
}

}  // namespace quillmere::test
