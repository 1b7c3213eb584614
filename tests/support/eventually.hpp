// Waiting for another process, or for anything else that happens by itself.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

namespace quillmere::test {

/// How long a test waits. Far longer than anything takes, and shorter than a test may run, so that a test
/// that waits in vain says what it saw.
inline constexpr std::chrono::seconds patience{60};

/// Calls `condition` again and again until it returns true; gives up after `limit`. The message of the
/// failure ends with what `lastSeen` returns.
testing::AssertionResult eventually(const std::function<bool()>& condition,
                                    const std::function<std::string()>& lastSeen = nullptr,
                                    std::chrono::milliseconds limit = patience);

/// Calls `look` again and again until it returns `expected`; the message of the failure shows the last value.
template <class Look, class Value>
testing::AssertionResult eventuallyEquals(Look look, const Value& expected,
                                          std::chrono::milliseconds limit = patience)
{
    auto last = look();
    const auto isExpected = [&] { return (last = look()) == expected; };
    return eventually(
        isExpected,
        [&] { return testing::PrintToString(last) + " instead of " + testing::PrintToString(expected); },
        limit);
}

}  // namespace quillmere::test
