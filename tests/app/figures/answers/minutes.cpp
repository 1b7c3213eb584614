#include "minutes.hpp"

#include <array>

namespace quillmere::test {
namespace {

constexpr int secondsPerMinute = 60;

std::tm localTime(Instant instant)
{
    const auto seconds = static_cast<std::time_t>(instant.secondsSince1970());
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return fields;
}

}  // namespace

std::vector<Block> blocksIn(const QuillmereState& state)
{
    std::vector<Block> blocks = state.blockHistory;
    if (state.currentBlock) {
        blocks.push_back(*state.currentBlock);
    }
    return blocks;
}

int minutesOf(const WorkSession& session)
{
    if (!session.endedAt || *session.endedAt < session.startedAt) {
        return 0;
    }
    const double seconds = *session.endedAt - session.startedAt - session.accumulatedPausedSeconds;
    return seconds > 0 ? static_cast<int>(seconds) / secondsPerMinute : 0;
}

void forEachMinute(const QuillmereState& state, const std::function<void(const std::tm&)>& visit)
{
    for (const Block& block : blocksIn(state)) {
        for (const WorkSession& session : block.sessions) {
            for (int minute = 0; minute < minutesOf(session); ++minute) {
                visit(localTime(session.startedAt + minute * secondsPerMinute));
            }
        }
    }
}

std::string dateOf(std::tm time, int dayBeginsAtHour)
{
    // Noon, so that a change of the clocks does not move the date.
    time.tm_mday -= time.tm_hour < dayBeginsAtHour ? 1 : 0;
    time.tm_hour = 12;
    time.tm_isdst = -1;
    std::mktime(&time);
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &time)};
}

std::string dateOf(Instant instant, int dayBeginsAtHour)
{
    return dateOf(localTime(instant), dayBeginsAtHour);
}

std::string clockOf(Instant instant)
{
    const std::tm time = localTime(instant);
    std::array<char, 8> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M", &time)};
}

}  // namespace quillmere::test
