// A whole save, compared with the minimum work of a save.
#include "sizes.hpp"

#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

/// The file system: the usual one, or one in memory, which waits less.
enum class Place { usual, memory };

/// A temporary directory.
class Directory {
public:
    explicit Directory(Place place)
    {
        const bool inMemory = place == Place::memory && fs::is_directory("/dev/shm");
        std::string name = (inMemory ? "/dev/shm" : fs::temp_directory_path()) / "quillmere-bench-XXXXXX";
        path = ::mkdtemp(name.data());
    }
    ~Directory() { fs::remove_all(path); }

    fs::path path;
};

/// The two ways to write a state to a file.
class Saving {
public:
    Saving(const benchmark::State& run, Place place)
        : directory_(place), state_(stateOf(run)), file_(fileOf(run))
    {
    }

    bool save() const
    {
        store_.save(state_);
        return true;
    }

    bool writeAndRename() const
    {
        const fs::path temporary = directory_.path / "temporary";
        FileManager::standard().writeWithoutOverwriting(temporary,
                                                        [&](const ByteSink& sink) { sink(file_.view()); });
        StateStore::renameReplacing(temporary, directory_.path / "written");
        return true;
    }

private:
    Directory directory_;
    QuillmereState state_;
    const Bytes& file_;
    StateStore store_{directory_.path, StateStore::renameReplacing};
};

template <Place place>
void saveQuillmere(benchmark::State& run)
{
    const Saving saving(run, place);
    timeInTurn(
        run, [&] { return saving.save(); }, [&] { saving.writeAndRename(); });
}

template <Place place>
void writeAndRename(benchmark::State& run)
{
    const Saving saving(run, place);
    timeInTurn(
        run, [&] { return saving.writeAndRename(); }, [&] { saving.save(); });
}

QUILLMERE_BENCH_SIZES(saveQuillmere<Place::usual>, "save/quillmere");
QUILLMERE_BENCH_SIZES(writeAndRename<Place::usual>, "save/write_and_rename");
// Long enough that the first saves, which find no free memory yet, do not matter.
QUILLMERE_BENCH_SIZES(saveQuillmere<Place::memory>, "save/in_memory/quillmere")->MinTime(0.5);
QUILLMERE_BENCH_SIZES(writeAndRename<Place::memory>, "save/in_memory/write_and_rename")->MinTime(0.5);

}  // namespace
}  // namespace quillmere::bench
