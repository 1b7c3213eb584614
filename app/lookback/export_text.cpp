#include "lookback/export_text.hpp"

#include <chrono>
#include <cmath>
#include <cstdint>

namespace quillmere::lookback {

std::string withoutControls(std::string_view text)
{
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isLayout = character == '\t' || character == '\n' || character == '\r';
        if ((byte < 0x20 && !isLayout) || byte == 0x7F) {
            result += "\uFFFD";
        } else {
            result += character;
        }
    }
    return result;
}

std::string utcText(Instant instant)
{
    namespace chrono = std::chrono;
    const auto seconds = static_cast<std::int64_t>(std::floor(instant.secondsSince1970()));
    const chrono::sys_seconds time{chrono::seconds(seconds)};
    const auto day = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(day);
    const std::int64_t second = (time - day).count();
    struct Part {
        std::int64_t number;
        int digits;
        char end;
    };
    const Part parts[] = {
        {static_cast<int>(date.year()), 4, '-'},
        {static_cast<unsigned>(date.month()), 2, '-'},
        {static_cast<unsigned>(date.day()), 2, 'T'},
        {second / 3600, 2, ':'},
        {second / 60 % 60, 2, ':'},
        {second % 60, 2, 'Z'},
    };
    std::string text;
    for (const Part& part : parts) {
        const std::string digits = std::to_string(part.number);
        text.append(static_cast<std::size_t>(part.digits) - digits.size(), '0').append(digits) += part.end;
    }
    return text;
}

}  // namespace quillmere::lookback
