// A whole save, against the least that a save can do.
#include "sizes.hpp"

#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

/// A directory of its own in memory where there is such a place, so that no disk is measured.
class Directory {
public:
    Directory()
    {
        std::string name = fs::is_directory("/dev/shm")
                               ? "/dev/shm/quillmere-bench-XXXXXX"
                               : fs::temp_directory_path() / "quillmere-bench-XXXXXX";
        path = ::mkdtemp(name.data());
    }
    ~Directory() { fs::remove_all(path); }

    fs::path path;
};

void saveQuillmere(benchmark::State& run)
{
    const QuillmereState state = stateOf(run);
    const Directory directory;
    const StateStore store(directory.path, StateStore::renameReplacing);
    for (auto _ : run) {
        store.save(state);
    }
}

void writeAndRename(benchmark::State& run)
{
    const Bytes& file = fileOf(run);
    const Directory directory;
    const FileManager& files = FileManager::standard();
    for (auto _ : run) {
        const fs::path temporary = directory.path / "temporary";
        files.writeWithoutOverwriting(temporary, file.view());
        StateStore::renameReplacing(temporary, directory.path / "state.json");
    }
}

QUILLMERE_BENCH_SIZES(saveQuillmere, "save/quillmere");
QUILLMERE_BENCH_SIZES(writeAndRename, "save/write_and_rename");

}  // namespace
}  // namespace quillmere::bench
