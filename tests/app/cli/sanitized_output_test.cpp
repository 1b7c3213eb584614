// Texts of persons and agents may contain control sequences; a terminal must not obey them.
#include <algorithm>
#include <cstring>
#include <string_view>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// Control sequences in 7-bit and 8-bit form: clear the screen, set the title, delete.
constexpr const char* nasty =
    "a\x1b[2J\x1b]0;x\x07\xC2\x9B"
    "2J\x7F\r\b\nb";
constexpr const char* harmless = "a\uFFFD[2J\uFFFD]0;x\uFFFD\uFFFD2J\uFFFD\uFFFD\uFFFD b";

/// Whether the text has no control character other than line breaks.
testing::AssertionResult isSanitized(const std::string& text)
{
    for (std::size_t index = 0; index < text.size(); ++index) {
        const auto byte = static_cast<unsigned char>(text[index]);
        const bool isC1 =
            byte == 0xC2 && index + 1 < text.size() && static_cast<unsigned char>(text[index + 1]) < 0xA0;
        if ((byte < 0x20 && byte != '\n') || byte == 0x7F || isC1) {
            return testing::AssertionFailure() << "byte " << index << " of " << testing::PrintToString(text);
        }
    }
    return testing::AssertionSuccess();
}

/// A state with control sequences in every text.
QuillmereState nastyState(WorkflowState workflowState)
{
    QuillmereState state = stateIn(workflowState);
    Block block = sampleBlock(9);
    block.outcomes = {{.id = identifier(1), .title = nasty}};
    block.reflection = BlockReview{.outputProduced = nasty,
                                   .normalComparison = nasty,
                                   .boggedDown = nasty,
                                   .wentWell = nasty,
                                   .lessons = nasty};
    state.blockHistory = {block};
    if (state.currentBlock) {
        state.currentBlock->outcomes = block.outcomes;
        for (WorkSession& session : state.currentBlock->sessions) {
            session.plan.intendedOutcome = nasty;
            session.plan.firstAction = nasty;
        }
    }
    state.agentQuestions = {
        {.id = identifier(2),
         .question = nasty,
         .createdAt = moment,
         .answer = std::nullopt,
         .answeredAt = std::nullopt},
        {.id = identifier(3), .question = nasty, .createdAt = moment, .answer = nasty, .answeredAt = moment}};
    return state;
}

const Words printing[] = {
    {"status"}, {"questions", "--all"}, {"history"}, {"report"},  {"widget"},
    {"agent"},  {"ask", nasty},         {"tick"},    {"restore"},
};

TEST(Output, isSanitizedWhateverIsInTheFiles)
{
    for (const WorkflowState workflowState :
         {WorkflowState::focusing, WorkflowState::breaking, WorkflowState::blockReview}) {
        const Person person;
        person.has(nastyState(workflowState));
        for (const Words& words : printing) {
            SCOPED_TRACE(words.front());
            const Ending ending = person.types(words);
            EXPECT_EQ(ending.code, ExitCode::done);
            EXPECT_TRUE(isSanitized(ending.out));
            EXPECT_TRUE(isSanitized(ending.err));
            Words forPrograms = words;
            forPrograms.push_back("--json");
            EXPECT_TRUE(isSanitized(person.types(forPrograms).out));
        }
    }
}

TEST(Output, keepsTheHarmlessPartsOfANastyText)
{
    const TimeZone here("UTC");
    const Person person;
    person.has(nastyState(WorkflowState::focusing));
    EXPECT_EQ(person.types({"questions"}).out, "1.  " + std::string(harmless) + "  (2026-11-15 15:00)\n");
    // Its line break stays one.
    const std::string_view firstLine = std::string_view(harmless).substr(0, std::strlen(harmless) - 2);
    EXPECT_NE(person.types({"status"}).out.find("\n" + std::string(firstLine) + "\n"), std::string::npos);
}

TEST(Output, givesProgramsTheWholeTextInAscii)
{
    const Person person;
    person.has(nastyState(WorkflowState::focusing));
    const Ending ending = person.types({"questions", "--json"});
    EXPECT_TRUE(std::all_of(ending.out.begin(), ending.out.end(),
                            [](char character) { return static_cast<unsigned char>(character) < 0x7F; }));
    EXPECT_EQ(jsonAt("/0/question", ending.out),
              jsonAt("/agent_questions/0/question", textOf(person.store().stateURL())));
}

const Words echoed[] = {
    {nasty},
    {"--directory", nasty + std::string("/\x1b"), "dance"},
    {"plan", "--start", "--focus", nasty},
    {"plan", "--start", "--cycles", nasty},
    {"plan", "--at", nasty},
    {"answer", nasty, "Yes"},
    {"answer", "\xFF", "Yes"},
    {"focus", "--energy", nasty},
    {"history", "--limit", nasty},
    {"open", nasty},
};

TEST(Messages, areSanitizedWhateverIsTyped)
{
    const Person person;
    for (const Words& words : echoed) {
        SCOPED_TRACE(testing::PrintToString(words));
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_TRUE(isSanitized(ending.err));
        Words forPrograms = words;
        forPrograms.insert(forPrograms.begin(), "--json");
        EXPECT_TRUE(isSanitized(person.types(forPrograms).err));
    }
}

TEST(Messages, areSanitizedWhateverADirectoryIsCalled)
{
    const TimeZone here("UTC");
    const Person person;
    const auto directory = person.directory() / "\x1b[2J";
    writeText(directory, "a file");
    const Ending refused = person.runs({"--directory", directory.string(), "ask", "Why?"});
    EXPECT_EQ(refused.code, ExitCode::fileError);
    EXPECT_TRUE(isSanitized(refused.err));
    const Ending tour = person.runs({"tour", (person.directory() / "\x1b[3J").string()});
    EXPECT_EQ(tour.code, ExitCode::done);
    EXPECT_TRUE(isSanitized(tour.out));
}

}  // namespace
}  // namespace quillmere::test
