#include "refusal_testing.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::test {

void expectRefusal(const Person& person, const Words& words, const std::string& message, ExitCode code)
{
    SCOPED_TRACE(testing::PrintToString(words));
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types(words);
    EXPECT_EQ(ending.code, code);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, message + "\n");
    Words forPrograms = {"--json"};
    forPrograms.insert(forPrograms.end(), words.begin(), words.end());
    const Ending json = person.types(forPrograms);
    EXPECT_EQ(json.code, code);
    EXPECT_EQ(json.out, "");
    EXPECT_EQ(jsonAt("/error/message", json.err), nlohmann::json(message).dump());
    EXPECT_EQ(pictureOf(person.directory()), before);
}

}  // namespace quillmere::test
