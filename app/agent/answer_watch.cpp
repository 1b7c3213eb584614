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
            dropWithoutDescriptor();
        }
    } catch (const std::system_error&) {
        // Refused below.
    }
    if (!watch_) {
        throw ToolRefusal(
            "The files cannot be watched now, so there is no waiting. Look again later with get_answer.");
    }
}

int AnswerWatch::descriptor() const { return watch_ ? watch_->descriptor() : -1; }

void AnswerWatch::take()
{
    try {
        watch_->takeChanges();
        dropWithoutDescriptor();
    } catch (const std::system_error&) {
        watch_.reset();
    }
    // Without a watch, the waiting calls are asked again now. They call `require`, which begins anew or
    // refuses.
}

void AnswerWatch::dropWithoutDescriptor()
{
    if (!watch_->trouble().empty()) {
        watch_.reset();
    }
}

}  // namespace quillmere::agent
