// Measures the memory and the number of allocations of loading and saving. Prints the ratios.
#include "child_process.hpp"
#include "generated_state.hpp"

#include <quillmere/store/state_store.hpp>

#include <stdlib.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <new>
#include <string>

namespace {

std::size_t blocksAllocated = 0;

}  // namespace

void* operator new(std::size_t size)
{
    ++blocksAllocated;
    if (void* const block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }

namespace quillmere::bench {
namespace {

namespace fs = std::filesystem;

/// A value of this process in kilobytes: "VmHWM", its peak resident memory, or "VmRSS".
double kilobytes(const std::string& figure)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(figure + ":", 0) == 0) {
            return std::stod(line.substr(figure.size() + 1));
        }
    }
    return 0;
}

/// The rows of a table.
std::string measure(std::size_t blocks, const fs::path& directory)
{
    std::string rows;
    const StateStore store(directory, StateStore::renameReplacing);
    inChildProcess([&](int) { store.save(generatedState(blocks)); });
    const double fileKilobytes = static_cast<double>(fs::file_size(store.stateURL())) / 1024;
    rows += inChildProcess([&](int output) {
        const double before = kilobytes("VmRSS");
        const QuillmereState state = store.load();
        ::dprintf(output, "| %zu blocks: most resident in a load, over the file | 8 | %.2f |\n", blocks,
                  (kilobytes("VmHWM") - before) / fileKilobytes);
    });
    rows += inChildProcess([&](int output) {
        const QuillmereState state = store.load();
        std::ofstream("/proc/self/clear_refs") << "5";
        const double before = kilobytes("VmRSS");
        store.save(state);
        ::dprintf(output,
                  "| %zu blocks: most resident in a save beyond the state, over the file | 2.5 | %.2f |\n",
                  blocks, (kilobytes("VmHWM") - before) / fileKilobytes);
    });
    rows += inChildProcess([&](int output) {
        const Bytes file = FileManager::standard().contents(store.stateURL());
        blocksAllocated = 0;
        const QuillmereState state = StateStore::decoder().decode<QuillmereState>(file);
        const double decoding = static_cast<double>(blocksAllocated);
        blocksAllocated = 0;
        const QuillmereState copy = state;
        ::dprintf(output, "| %zu blocks: heap blocks of a decode, over a copy's | 1.07 | %.3f |\n", blocks,
                  decoding / static_cast<double>(blocksAllocated));
    });
    return rows;
}

}  // namespace
}  // namespace quillmere::bench

int main()
{
    std::string name = (std::filesystem::temp_directory_path() / "quillmere-memory-XXXXXX").string();
    const std::filesystem::path directory = ::mkdtemp(name.data());
    std::printf("| Memory | at most | measured |\n|---|---|---|\n");
    for (const std::size_t blocks : {1'000, 10'000}) {
        std::fputs(quillmere::bench::measure(blocks, directory).c_str(), stdout);
    }
    std::filesystem::remove_all(directory);
}
