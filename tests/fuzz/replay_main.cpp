// Runs a fuzz target on stored inputs: each argument is a file, or a directory of such files.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "fuzz/fuzz_target.hpp"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesAt(const fs::path& place)
{
    if (!fs::is_directory(place)) {
        return {place};
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(place)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void replay(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot be read: " + file.string());
    }
    // Exactly as long as the file, so that a sanitizer detects a read past the end.
    std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(stream), {});
    bytes.shrink_to_fit();
    std::cerr << file.string() << '\n';
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int count, char** arguments)
{
    std::size_t replayed = 0;
    for (int index = 1; index < count; ++index) {
        const std::vector<fs::path> files = filesAt(arguments[index]);
        if (files.empty()) {
            std::cerr << "nothing to replay in " << arguments[index] << '\n';
            return 1;
        }
        for (const fs::path& file : files) {
            replay(file);
            ++replayed;
        }
    }
    std::cerr << replayed << " inputs\n";
    return replayed > 0 ? 0 : 1;
}
