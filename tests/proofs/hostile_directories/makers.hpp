// Functions that create the hostile situations.
#pragma once

#include "scene.hpp"

namespace quillmere::test::makers {

// The directory ---------------------------------------------------------------------------------------

void asItShouldBe(Scene& scene);
void missing(Scene& scene);
void missingWithItsParents(Scene& scene);
void aFile(Scene& scene);
void belowAFile(Scene& scene);
void aDanglingLink(Scene& scene);
void aLinkLoop(Scene& scene);
void aLinkToADirectory(Scene& scene);
void aNameTooLong(Scene& scene);
void aPathTooLong(Scene& scene);
void filePathsTooLong(Scene& scene);
void aNameWithANewline(Scene& scene);
void aNameWithSpaces(Scene& scene);
void aNameThatIsNoText(Scene& scene);
void aNameWithALeadingDash(Scene& scene);
void aNameOf255Bytes(Scene& scene);
void missingInAClosedParent(Scene& scene);
void removedBetweenCalls(Scene& scene);
void removedInsideASave(Scene& scene);

template <mode_t mode>
void ofMode(Scene& scene)
{
    std::filesystem::permissions(scene.place, std::filesystem::perms(mode));
}

// A file ----------------------------------------------------------------------------------------------

inline constexpr const char state[] = "state.json";
inline constexpr const char agent[] = "agent-state.json";
inline constexpr const char widget[] = "widget-snapshot.json";

void directoryAt(const std::filesystem::path& file);
void linkToAFileAt(const std::filesystem::path& file);
void danglingLinkAt(const std::filesystem::path& file);
void linkLoopAt(const std::filesystem::path& file);
void fifoAt(const std::filesystem::path& file);
void socketAt(const std::filesystem::path& file);
void unreadableAt(const std::filesystem::path& file);
void readOnlyAt(const std::filesystem::path& file);
void emptyAt(const std::filesystem::path& file);
void oneByteAt(const std::filesystem::path& file);
void sparseAt(const std::filesystem::path& file);
void leftoversOf(const std::filesystem::path& file);

/// Puts something in place of one file.
template <const char* name, void (*put)(const std::filesystem::path&)>
void at(Scene& scene)
{
    put(scene.place / name);
}

// The process -----------------------------------------------------------------------------------------

template <mode_t mask>
void withMask(Scene& scene)
{
    scene.mask = mask;
}

/// The same with no directory yet.
template <mode_t mask>
void withMaskAndNothingYet(Scene& scene)
{
    missing(scene);
    scene.mask = mask;
}

void nothingNamesAHome(Scene& scene);
void emptyNames(Scene& scene);
void relativeHome(Scene& scene);
void relativeHomeAndData(Scene& scene);
void homeAlone(Scene& scene);
void homeWithEmptyData(Scene& scene);
void homeWithRelativeData(Scene& scene);
void dataWithoutHome(Scene& scene);
void dataWithRelativeHome(Scene& scene);
void homeThatIsMissing(Scene& scene);

}  // namespace quillmere::test::makers
