// The file of a state: the present, and the file put together from it, are what the whole file gives.
#include "statefile/present.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>

#include "fuzz/fuzz_target.hpp"

namespace quillmere::test {
namespace {

constexpr Instant now{1794754800};

/// A file in memory.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view text) : descriptor_(::memfd_create("state", MFD_CLOEXEC))
    {
        require(::write(descriptor_, text.data(), text.size()) == static_cast<ssize_t>(text.size()),
                "there is memory for a file");
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { ::close(descriptor_); }

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

/// Absent for a text that is no state, and for one whose reviews get new identifiers at each reading.
std::optional<QuillmereState> stateIn(std::string_view text)
{
    try {
        QuillmereState state = StateStore::decoder().decode<QuillmereState>(Bytes(text));
        const bool isOne = state == StateStore::decoder().decode<QuillmereState>(Bytes(text));
        return isOne ? std::optional(std::move(state)) : std::nullopt;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

QuillmereState presentOf(QuillmereState state)
{
    base::keepWithin(base::Reach::present, state, now);
    return state;
}

/// What is saved of an unchanged present.
std::string savedAgain(const statefile::Changeable& changeable)
{
    std::string text;
    const auto keep = [&](const std::filesystem::path& temporary, const std::filesystem::path&) {
        text = FileManager::standard().contents(temporary).view();
    };
    changeable.kept.save(changeable.state, std::filesystem::temp_directory_path() / "state.json", keep);
    return text;
}

void readBothWays(std::string_view text)
{
    const MemoryFile file(text);
    const auto present = statefile::readPresent(file.path(), base::Reach::present, now);
    const auto changeable = statefile::readChangeable(file.path(), base::Reach::present, now);
    const std::optional<QuillmereState> whole =
        present || changeable ? stateIn(text) : std::optional<QuillmereState>();
    if (!whole) {
        return;
    }
    require(!present || *present == presentOf(*whole), "the present is that of the whole file");
    if (changeable) {
        require(changeable->state == presentOf(*whole), "and that which is changed too");
        require(savedAgain(*changeable) == StateStore::encoder().encode(*whole).view(),
                "what is saved is what saving everything gives");
    }
}

}  // namespace
}  // namespace quillmere::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    quillmere::test::readBothWays(quillmere::test::textOf(data, size));
    return 0;
}
