// Saves a made-up year, up to now, to look back on: generated_year DIRECTORY
#include "generated_year.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <chrono>
#include <cmath>
#include <exception>
#include <iostream>

int main(int count, char** arguments)
try {
    using namespace quillmere;
    if (count != 2) {
        std::cerr << "usage: generated_year DIRECTORY\n";
        return 2;
    }
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    const Instant now(std::floor(std::chrono::duration<double>(sinceEpoch).count()));
    const StateStore store(arguments[1], StateStore::renameReplacing);
    if (FileManager::standard().fileExists(store.stateURL())) {
        std::cerr << "There is a state already: " << store.stateURL().string() << '\n';
        return 1;
    }
    const QuillmereState state = test::generatedYear(now);
    store.save(state);
    WidgetSnapshotStore(store.directory()).save(WidgetSnapshot::make(state, now));
    return 0;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
