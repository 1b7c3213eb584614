#include "proofs/system_calls/traced_faults.hpp"

#include <array>
#include <cerrno>
#include <sstream>

#include "proofs/system_calls/call_errors.hpp"

namespace quillmere::test {

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
    if (call.name == "copy_file_range") {
        return SystemCall::write;
    }
    for (const SystemCall kind : all) {
        if (call.name.find(nameOf(kind)) != std::string::npos) {
            return kind;
        }
    }
    return std::nullopt;
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
