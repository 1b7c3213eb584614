// Waiting with a limit, for another process or any other condition.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

namespace quillmere::test {

/// The usual limit. Far longer than any expected wait, but shorter than the limit of a test, so that a test
/// that waits in vain can report the last state it saw.
inline constexpr std::chrono::seconds patience{60};

/// Calls `condition` repeatedly until it returns true or `limit` is over. The failure message ends with the
/// result of `lastSeen`.
testing::AssertionResult eventually(const std::function<bool()>& condition,
                                    const std::function<std::string()>& lastSeen = nullptr,
                                    std::chrono::milliseconds limit = patience);

/// Calls `look` repeatedly until it returns `expected`. The failure message shows the last value.
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
