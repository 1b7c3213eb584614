// Temporary files of killed programs are deleted by the next save.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* uuid = "E25B4778-6981-4E1A-B0C8-AC8DE990BFF1";

/// Writes a file that is as old as given at the person's present.
void writeOld(const Person& person, const std::string& name, double age)
{
    writeText(person.directory() / name, "half of");
    const auto writtenAt = static_cast<time_t>((person.now - age).secondsSince1970());
    const timespec times[2] = {{writtenAt, 0}, {writtenAt, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (person.directory() / name).c_str(), times, 0), 0);
}

/// The hidden files that are left after a save.
Words leftAfterASave(const Person& person)
{
    person.types({"ask", "Why?"});
    Words names = person.names();
    std::erase_if(names, [](const std::string& name) { return !name.starts_with('.'); });
    return names;
}

TEST(StaleFiles, ofEachOfTheThreeFilesAreDeletedAfterAnHour)
{
    for (const std::string file : {"state.json", "agent-state.json", "widget-snapshot.json"}) {
        const Person person;
        writeOld(person, "." + file + "." + uuid + ".tmp", 3'602);
        EXPECT_EQ(leftAfterASave(person), Words{}) << file;
    }
}

TEST(StaleFiles, thatARunningProgramMayBeWritingStay)
{
    const Person person;
    const std::string name = std::string(".state.json.") + uuid + ".tmp";
    writeOld(person, name, 3'598);
    EXPECT_EQ(leftAfterASave(person), Words{name});
}

TEST(StaleFiles, withOtherNamesAreNotOurs)
{
    const Person person;
    const Words names = {std::string(".notes.json.") + uuid + ".tmp", ".state.json.old.tmp",
                         std::string(".state.json.") + uuid + ".tmp2",
                         std::string(".state.json.") + "X25B4778-6981-4E1A-B0C8-AC8DE990BFF1" + ".tmp"};
    for (const std::string& name : names) {
        writeOld(person, name, 1e6);
    }
    EXPECT_EQ(leftAfterASave(person).size(), names.size());
}

}  // namespace
}  // namespace quillmere::test
