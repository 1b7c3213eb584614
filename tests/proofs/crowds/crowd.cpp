#include "proofs/crowds/crowd.hpp"

#include <algorithm>
#include <chrono>
#include <iostream>

namespace quillmere::test {
namespace {

/// The long forms run for minutes.
constexpr std::chrono::hours longestWork{1};

}  // namespace

void Crowd::join(const std::function<int()>& work)
{
    atWork_.emplace_back(
        ProcessOptions{.work = work, .output = Channel::inherited(), .error = Channel::inherited()});
}

bool Crowd::allSucceed()
{
    const auto hasEnded = [](Process& process) { return process.hasEnded(); };
    bool succeed = true;
    const auto endedTogether = [&] {
        for (auto ended = atWork_.begin(); succeed && ended != atWork_.end();) {
            ended = std::find_if(atWork_.begin(), atWork_.end(), hasEnded);
            if (ended != atWork_.end()) {
                const int code = ended->wait().code;
                succeed = code == 0;
                atWork_.erase(ended);
                std::cerr << (succeed ? "" : "one of a crowd ended with " + std::to_string(code) + '\n');
            }
        }
        return !succeed || atWork_.empty();
    };
    const testing::AssertionResult result = eventually(endedTogether, nullptr, longestWork);
    EXPECT_TRUE(result);
    // Kills the remaining processes.
    atWork_.clear();
    return result && succeed;
}

}  // namespace quillmere::test
