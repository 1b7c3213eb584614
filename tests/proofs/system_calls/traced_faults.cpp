#include "proofs/system_calls/traced_faults.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sstream>

#include "proofs/system_calls/call_errors.hpp"
#include "proofs/system_calls/expectation.hpp"

namespace quillmere::test {

using cli::ExitCode;

namespace {

bool opensDirectory(const TracedCall& call)
{
    return call.name.starts_with("open") && call.text.find("O_DIRECTORY") != std::string::npos;
}

}  // namespace

std::optional<SystemCall> callOf(const TracedCall& call)
{
    const auto has = [&](const char* word) { return call.text.find(word) != std::string::npos; };
    constexpr std::array all = {SystemCall::mkdir, SystemCall::chmod, SystemCall::lstat,  SystemCall::fstat,
                                SystemCall::stat,  SystemCall::open,  SystemCall::read,   SystemCall::write,
                                SystemCall::fsync, SystemCall::close, SystemCall::rename, SystemCall::unlink};
    if (has("AT_EMPTY_PATH")) {
        return SystemCall::fstat;
    }
    if (has("AT_SYMLINK_NOFOLLOW")) {
        return SystemCall::lstat;
    }
    for (const SystemCall kind : all) {
        if (call.name.find(nameOf(kind)) != std::string::npos) {
            return kind;
        }
    }
    return std::nullopt;
}

Outcome Undisturbed::outcomeOf(std::size_t index, int error, bool fromThereOn) const
{
    Outcome outcome{.code = ExitCode::done, .isReplaced = {true, true, true}};
    for (std::size_t later = index; later < (fromThereOn ? calls_.size() : index + 1); ++later) {
        if (calls_[later].name != calls_[index].name || isAbsorbed(later, error)) {
            continue;
        }
        outcome.code = ExitCode::fileError;
        if (renamesBefore(later) == 0) {
            outcome.isReplaced = {false, false, false};  // no summary of a state that is not saved
        } else if (const std::size_t file = fileOf(later); renamesBefore(later) == file) {
            outcome.isReplaced.at(file) = false;
        }
    }
    return outcome;
}

bool Undisturbed::isAbsorbed(std::size_t index, int error) const
{
    const TracedCall& call = calls_[index];
    const std::optional<SystemCall> kind = callOf(call);
    const bool saysItAnyway = call.text.find("= -1 " + nameOfError(error)) != std::string::npos;
    if (!kind) {
        // Taking the lock is tried again, or another kind of lock is taken.
        return error == EINTR || error == EWOULDBLOCK || error == ENOLCK;
    }
    const bool isLast = index + 1 == calls_.size();
    const bool wasRead = call.text.find("/state.json>") != std::string::npos;
    const bool isClosed = *kind == SystemCall::close && (error == EINTR || isLast || wasRead);
    const bool goesOn = error == EINTR && isContinued(*kind);
    return saysItAnyway || isClosed || goesOn || *kind == SystemCall::unlink || keepsVersion(index) ||
           meansNotOffered(index, error) || isAbsorbedByListing(index, error);
}

bool Undisturbed::meansNotOffered(std::size_t index, int error) const
{
    const TracedCall& call = calls_[index];
    const bool isForLock = index + 1 < calls_.size() && calls_[index + 1].name == "flock";
    const bool opens = opensDirectory(call) && !isForLock && !isListing(index);
    const bool syncs = call.name == "fsync" && call.text.find(".tmp>") == std::string::npos;
    return (opens || syncs) && (error == EACCES || error == EINVAL || error == ENOTSUP);
}

bool Undisturbed::isListing(std::size_t index) const
{
    // opendir(3) opens without blocking; fstat and close follow.
    constexpr std::size_t callsOfListing = 3;
    for (std::size_t back = 0; back < callsOfListing && back <= index; ++back) {
        const TracedCall& call = calls_[index - back];
        if (call.name.starts_with("open")) {
            return opensDirectory(call) && call.text.find("O_NONBLOCK") != std::string::npos;
        }
    }
    return false;
}

bool Undisturbed::isAbsorbedByListing(std::size_t index, int error) const
{
    const bool isRepeated = error == EINTR;
    return isListing(index) && (error == EACCES || isRepeated || callOf(calls_[index]) == SystemCall::close);
}

bool Undisturbed::keepsVersion(std::size_t index) const
{
    const auto concernsState = [](const TracedCall& call) {
        return callOf(call) != SystemCall::rename && (call.text.find("/state.json>") != std::string::npos ||
                                                      call.text.find("/state.json\"") != std::string::npos);
    };
    // Keeping the version starts with the last lstat of the state.
    const bool hasBegun = std::none_of(
        calls_.begin() + static_cast<std::ptrdiff_t>(index) + 1, calls_.end(),
        [&](const TracedCall& later) { return callOf(later) == SystemCall::lstat && concernsState(later); });
    return hasBegun && concernsState(calls_[index]);
}

std::size_t Undisturbed::renamesBefore(std::size_t index) const
{
    return static_cast<std::size_t>(
        std::count_if(calls_.begin(), calls_.begin() + static_cast<std::ptrdiff_t>(index),
                      [](const TracedCall& call) { return callOf(call) == SystemCall::rename; }));
}

std::size_t Undisturbed::fileOf(std::size_t index) const
{
    std::size_t file = 0;
    for (std::size_t earlier = 0; earlier < index; ++earlier) {
        const bool isDone = renamesBefore(earlier) > file && callOf(calls_[earlier]) == SystemCall::close;
        file += isDone ? 1 : 0;
    }
    return file;
}

std::vector<int> errorsToTry(const TracedCall& call)
{
    const std::optional<SystemCall> kind = callOf(call);
    if (!kind) {
        return {ENOLCK, EINTR, EWOULDBLOCK, EINVAL, EBADF};
    }
    std::vector<int> errors = errorsOf(*kind);
    std::erase_if(errors, [&](int error) {
        const bool isAnswer = error == ENOENT || error == ENOTDIR || error == EEXIST;
        return error == unknownError || (isAnswer && *kind != SystemCall::rename);
    });
    return errors;
}

bool mayBePermanent([[maybe_unused]] const TracedCall& call)
{
#ifdef __SANITIZE_ADDRESS__
    // The sanitizers test addresses by writing to their own pipes, and exit with 0 when that fails.
    return callOf(call) != SystemCall::write;
#else
    return true;
#endif
}

std::string injectionOf(const TracedCall& call, int error, bool fromThereOn)
{
    std::ostringstream text;
    text << call.name << ":error=" << nameOfError(error) << ":when=" << call.ordinal;
    if (fromThereOn && (error == EINTR || error == EWOULDBLOCK)) {
        text << ".." << call.ordinal + mostInterruptions;
    } else if (fromThereOn) {
        text << '+';
    }
    return text.str();
}

}  // namespace quillmere::test
