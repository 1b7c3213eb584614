#include "makers.hpp"

#include <quillmere/records/identifier.hpp>
#include <quillmere/widget/app_group.hpp>

#include <sys/stat.h>

#include "proofs/support/figures.hpp"
#include "support/file_system.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test::makers {

namespace fs = std::filesystem;

namespace {

void passDirectory(Scene& scene, const fs::path& place)
{
    scene.place = place;
    scene.widgetPlace = place;
    scene.directoryOption = place;
}

/// A path of exactly `length` bytes below `from`, with names of 200 bytes.
fs::path longPath(const fs::path& from, std::size_t length)
{
    constexpr std::size_t step = 200;
    std::string path = from.string();
    while (path.size() + 2 < length) {
        path += '/' + std::string(std::min(step, length - path.size() - 1), 'x');
    }
    return path;
}

}  // namespace

void asItShouldBe(Scene&) {}

void missing(Scene& scene) { fs::remove_all(scene.place); }

void missingWithItsParents(Scene& scene) { passDirectory(scene, scene.root / "some" / "where" / "place"); }

void aFile(Scene& scene)
{
    fs::remove_all(scene.place);
    writeText(scene.place, "Dear diary");
}

void belowAFile(Scene& scene)
{
    writeText(scene.root / "diary", "Dear diary");
    passDirectory(scene, scene.root / "diary" / "place");
}

void aDanglingLink(Scene& scene)
{
    fs::remove_all(scene.place);
    fs::create_symlink("nowhere", scene.place);
}

void aLinkLoop(Scene& scene)
{
    fs::remove_all(scene.place);
    makeLinkLoop(scene.place);
}

void aLinkToADirectory(Scene& scene)
{
    const fs::path link = scene.place;
    moveTo(scene, scene.root / "elsewhere");
    fs::create_symlink("elsewhere", link);
    scene.directoryOption = link;
}

void aNameTooLong(Scene& scene)
{
    constexpr std::size_t oneTooMany = 256;
    passDirectory(scene, scene.root / std::string(oneTooMany, 'x'));
}

void aPathTooLong(Scene& scene)
{
    constexpr std::size_t tooMuch = 4200;
    passDirectory(scene, longPath(scene.root, tooMuch));
}

void filePathsTooLong(Scene& scene)
{
    constexpr std::size_t justEnough = 4090;
    passDirectory(scene, longPath(scene.root, justEnough));
    fs::create_directories(scene.place);
    ofMode<0700>(scene);
}

void aNameWithANewline(Scene& scene) { moveTo(scene, scene.root / "two\nlines\x1b[31m"); }

void aNameWithSpaces(Scene& scene) { moveTo(scene, scene.root / "  my notes "); }

void aNameThatIsNoText(Scene& scene) { moveTo(scene, scene.root / "\xFF\xC3\xED\xA0\x80"); }

void aNameWithALeadingDash(Scene& scene)
{
    moveTo(scene, scene.root / "-h");
    scene.directoryOption = "-h";
}

void aNameOf255Bytes(Scene& scene)
{
    constexpr std::size_t most = 255;
    moveTo(scene, scene.root / std::string(most, 'x'));
}

void missingInAClosedParent(Scene& scene)
{
    constexpr auto closed = fs::perms(0500);
    fs::create_directory(scene.root / "closed");
    passDirectory(scene, scene.root / "closed" / "place");
    fs::permissions(scene.root / "closed", closed);
}

void removedBetweenCalls(Scene& scene)
{
    scene.betweenCalls = [place = scene.place] { fs::remove_all(place); };
}

void removedInsideASave(Scene& scene)
{
    fs::remove_all(scene.place);
    scene.beforeMove = [place = scene.place] { fs::remove_all(place); };
}

void directoryAt(const fs::path& file)
{
    fs::remove(file);
    fs::create_directory(file);
}

void linkToAFileAt(const fs::path& file)
{
    fs::remove(file);
    fs::create_symlink(fs::path("..") / "outside" / file.filename(), file);
}

void danglingLinkAt(const fs::path& file)
{
    fs::remove(file);
    fs::create_symlink(fs::path("..") / "outside" / "nowhere", file);
}

void linkLoopAt(const fs::path& file)
{
    fs::remove(file);
    makeLinkLoop(file);
}

void fifoAt(const fs::path& file)
{
    fs::remove(file);
    makeFifo(file);
}

void socketAt(const fs::path& file)
{
    fs::remove(file);
    makeSocket(file);
}

void unreadableAt(const fs::path& file) { fs::permissions(file, fs::perms::none); }

void readOnlyAt(const fs::path& file) { fs::permissions(file, fs::perms::owner_read); }

void emptyAt(const fs::path& file) { writeText(file, ""); }

void oneByteAt(const fs::path& file) { writeText(file, "{"); }

void sparseAt(const fs::path& file)
{
    writeText(file, "");
    constexpr std::uint64_t some = 1 << 22;
    constexpr std::uint64_t gigabyte = 1'000'000'000;
    fs::resize_file(file, amount(some, gigabyte));
}

void leftoversOf(const fs::path& file)
{
    // A third looks like the file, a third cannot be read, and a third would block a reader forever.
    constexpr unsigned each = 100;
    const std::string foreign = textOf(file.parent_path().parent_path() / "outside" / file.filename());
    const auto leftover = [&file] {
        return file.parent_path() /
               ("." + file.filename().string() + "." + Identifier::random().text() + ".tmp");
    };
    for (unsigned number = 0; number < each; ++number) {
        writeText(leftover(), foreign);
        const fs::path locked = leftover();
        writeText(locked, foreign);
        fs::permissions(locked, fs::perms::none);
        makeFifo(leftover());
    }
}

namespace {

using Value = std::optional<std::string>;

/// Moves the files to their usual places below `support`, an application-support directory, and passes no
/// directory to the program.
void moveToUsualPlaces(Scene& scene, const fs::path& support)
{
    const fs::path container = support / "group-containers" / QuillmereAppGroup::identifier;
    fs::create_directories(container);
    fs::permissions(container, fs::perms::owner_all);
    moveTo(scene, support / "Quillmere");
    fs::rename(scene.place / widget, container / widget);
    scene.widgetPlace = container;
    scene.directoryOption.reset();
}

void setNames(Scene& scene, const Value& home, const Value& data)
{
    scene.variables["HOME"] = home;
    scene.variables["XDG_DATA_HOME"] = data;
}

fs::path supportIn(const fs::path& home) { return home / ".local" / "share"; }

}  // namespace

void nothingNamesAHome(Scene& scene)
{
    moveToUsualPlaces(scene, supportIn(scene.root));
    setNames(scene, std::nullopt, std::nullopt);
}

void emptyNames(Scene& scene)
{
    moveToUsualPlaces(scene, supportIn(scene.root));
    setNames(scene, "", "");
}

void relativeHome(Scene& scene)
{
    moveToUsualPlaces(scene, supportIn(scene.root / "home"));
    setNames(scene, "home", std::nullopt);
}

void relativeHomeAndData(Scene& scene)
{
    moveToUsualPlaces(scene, scene.root / "data");
    setNames(scene, "home", "data");
}

void homeAlone(Scene& scene)
{
    moveToUsualPlaces(scene, supportIn(scene.root / "home"));
    setNames(scene, (scene.root / "home").string(), std::nullopt);
}

void homeWithEmptyData(Scene& scene)
{
    moveToUsualPlaces(scene, supportIn(scene.root / "home"));
    setNames(scene, (scene.root / "home").string(), "");
}

void homeWithRelativeData(Scene& scene)
{
    fs::create_directory(scene.root / "data");
    moveToUsualPlaces(scene, supportIn(scene.root / "home"));
    setNames(scene, (scene.root / "home").string(), "data");
}

void dataWithoutHome(Scene& scene)
{
    moveToUsualPlaces(scene, scene.root / "data");
    setNames(scene, std::nullopt, (scene.root / "data").string());
}

void dataWithRelativeHome(Scene& scene)
{
    moveToUsualPlaces(scene, scene.root / "data");
    setNames(scene, "home", (scene.root / "data").string());
}

void homeThatIsMissing(Scene& scene)
{
    scene.directoryOption.reset();
    fs::remove_all(scene.place);
    const fs::path support = supportIn(scene.root / "nobodys-home");
    scene.place = support / "Quillmere";
    scene.widgetPlace = support / "group-containers" / QuillmereAppGroup::identifier;
}

}  // namespace quillmere::test::makers
