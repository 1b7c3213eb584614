// The configuration: any text is read, and what was taken reads back equal.
#include "config/configuration.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"

#include <string>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

template <class Record, std::size_t count>
std::string linesOf(const Record& record, const std::array<config::Key<Record>, count>& keys)
{
    std::string lines;
    for (const config::Key<Record>& key : keys) {
        const std::string value = config::written(record, key);
        lines += value.empty() ? "" : std::string(key.name) + " = " + value + "\n";
    }
    return lines;
}

std::string textOf(const config::Values& values)
{
    std::string text = linesOf(values, config::keys);
    for (const config::Template& each : values.templates) {
        text += "[template." + config::tomlKey(each.name) + "]\n" + linesOf(each, config::templateKeys);
    }
    return text;
}

void configure(std::string_view text)
{
    config::Configuration configuration;
    config::add(configuration, text, "file");
    for (const config::Problem& problem : configuration.problems) {
        require(!problem.sentence.empty(), "a problem is put into words");
        require(!problem.place || (problem.place->line >= 1 && problem.place->column >= 1),
                "a place is in the text");
    }
    config::Configuration again;
    config::add(again, textOf(configuration.values), "file");
    require(again.problems.empty(), "values that were taken are taken again");
    require(again.values == configuration.values, "and are the same");
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::configure(quillmere::test::textOf(data, size));
    return 0;
}
