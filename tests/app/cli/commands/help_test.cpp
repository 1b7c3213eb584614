// The help of the program and of each command.
#include "cli/whole_command_line.hpp"

namespace quillmere::test {
namespace {

TEST(Help, ofTheProgramAndOfACommandIsThatOfTheOption)
{
    const Person person;
    EXPECT_EQ(person.types({"help"}).out, person.types({"--help"}).out);
    EXPECT_EQ(person.types({"help", "plan"}).out, person.types({"plan", "--help"}).out);
    EXPECT_EQ(person.types({"help", "break", "extend"}).out, person.types({"break", "extend", "--help"}).out);
    EXPECT_NE(person.types({"help", "plan"}).out.find("Usage: quillmere plan"), std::string::npos);
}

TEST(Version, isPrintedByACommandAndByOptions)
{
    const Person person;
    const std::string version = person.types({"version"}).out;
    EXPECT_TRUE(version.starts_with("quillmere ")) << version;
    EXPECT_EQ(person.types({"-V"}).out, version);
    EXPECT_EQ(person.types({"--version"}).out, version);
    EXPECT_EQ("quillmere " + jsonAt("/version", person.types({"version", "--json"}).out) + '\n',
              version.substr(0, 10) + '"' + version.substr(10, version.size() - 11) + "\"\n");
}

/// The lines of the help after the heading of the examples, without their indentation.
Words examplesIn(const std::string& help)
{
    std::istringstream lines(help);
    Words examples;
    bool isBehindHeading = false;
    for (std::string line; std::getline(lines, line);) {
        if (isBehindHeading && !line.empty()) {
            examples.push_back(line.substr(line.find_first_not_of(' ')));
        }
        isBehindHeading = isBehindHeading || line == "Examples:";
    }
    return examples;
}

/// The words of the command that a line of a shell calls; empty with a failure when it is not understood.
std::string commandCalledBy(const std::string& example, base::Environment& environment)
{
    cli::Program program(environment);
    CLI::App line("", "quillmere");
    cli::defineCommandLine(line, program);
    Words words = CLI::detail::split_up(example);
    EXPECT_EQ(words.front(), "quillmere");
    words.erase(words.begin());
    try {
        cli::parse(words, line);
    } catch (const CLI::ParseError& error) {
        ADD_FAILURE() << example << ": " << error.what();
    }
    return program.command;
}

void expectExamplesBelow(const CLI::App& group, const std::string& path, base::Environment& environment)
{
    for (const CLI::App* const command :
         group.get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); })) {
        const std::string words = path + command->get_name();
        SCOPED_TRACE(words);
        const Words examples = examplesIn(command->help());
        EXPECT_EQ(examples.size(), 2u);
        for (const std::string& example : examples) {
            EXPECT_TRUE(commandCalledBy(example, environment).starts_with(words)) << example;
        }
        expectExamplesBelow(*command, words + " ", environment);
    }
}

TEST(Help, ofEveryCommandEndsWithTwoExamplesThatAreUnderstood)
{
    WholeCommandLine whole;
    expectExamplesBelow(whole.line, "", whole.environment);
}

}  // namespace
}  // namespace quillmere::test
