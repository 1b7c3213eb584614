// What a person is told about a command line with a slip.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

std::string told(const Words& words)
{
    const Person person;
    const Ending ending = person.types(words);
    EXPECT_EQ(ending.code, ExitCode::usage);
    return ending.err;
}

TEST(UsageError, suggestsTheCommandThatWasMeant)
{
    EXPECT_EQ(told({"focsu"}), "There is no command \"focsu\". Did you mean focus? (quillmere --help)\n");
    EXPECT_EQ(told({"break", "extned", "5m"}),
              "break has no command \"extned\". Did you mean extend? (quillmere break --help)\n");
    EXPECT_EQ(told({"help", "plna"}), "There is no command \"plna\". Did you mean plan?\n");
    EXPECT_EQ(told({"help", "break", "extned"}), "break has no command \"extned\". Did you mean extend?\n");
}

TEST(UsageError, suggestsNothingForAWordThatIsLikeNoCommand)
{
    EXPECT_EQ(told({"dance"}), "There is no command \"dance\". (quillmere --help)\n");
}

TEST(UsageError, suggestsTheOptionThatWasMeant)
{
    EXPECT_EQ(told({"plan", "--outcom=Essay"}),
              "plan has no option \"--outcom\". Did you mean --outcome? (quillmere plan --help)\n");
    EXPECT_EQ(told({"pause", "--jsno"}),
              "pause has no option \"--jsno\". Did you mean --json? (quillmere pause --help)\n");
    EXPECT_EQ(told({"--jsno"}), "There is no option \"--jsno\". Did you mean --json? (quillmere --help)\n");
    EXPECT_EQ(
        told({"break", "extend", "--jsno", "5m"}),
        "break extend has no option \"--jsno\". Did you mean --json? (quillmere break extend --help)\n");
}

TEST(UsageError, namesAWordThatACommandDoesNotTake)
{
    EXPECT_EQ(told({"pause", "now"}), "pause takes no \"now\". (quillmere pause --help)\n");
}

TEST(UsageError, pointsToTheHelpOfTheCommand)
{
    EXPECT_EQ(told({"ask"}), "question is required (quillmere ask --help)\n");
    EXPECT_TRUE(told({"break"}).ends_with("(quillmere break --help)\n"));
}

}  // namespace
}  // namespace quillmere::test
