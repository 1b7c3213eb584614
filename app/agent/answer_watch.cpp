#include "agent/answer_watch.hpp"

#include "agent/attempt.hpp"

#include <system_error>
#include <utility>

namespace quillmere::agent {

AnswerWatch::AnswerWatch(std::filesystem::path directory) : directory_(std::move(directory)) {}

void AnswerWatch::require()
{
    try {
        if (!watch_) {
            watch_.emplace(directory_);
        }
    } catch (const std::system_error&) {
        throw ToolRefusal(
            "The files cannot be watched now, so there is no waiting. Look again later with get_answer.");
    }
}

int AnswerWatch::descriptor() const { return watch_ ? watch_->descriptor() : -1; }

void AnswerWatch::take()
{
    try {
        watch_->takeChanges();
    } catch (const std::system_error&) {
        // The waiting calls are asked again next. They call `require`, which starts a new watch or refuses.
        watch_.reset();
    }
}

}  // namespace quillmere::agent
