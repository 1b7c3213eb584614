#include "proofs/system_calls/expectation.hpp"

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "proofs/system_calls/call_errors.hpp"

namespace quillmere::test {
namespace {

bool leadsNowhere(int error) { return error == ENOENT || error == ENOTDIR; }

/// Whether the save succeeds in spite of the failed call.
bool isAbsorbed(const CallRecord& record, int error)
{
    if (error == 0 || record.error == error) {
        return true;  // a short transfer, or the error that the undisturbed call returns too
    }
    if (error == EINTR && (isContinued(record.call) || record.call == SystemCall::close)) {
        return true;
    }
    // A directory that lstat does not find is created, and mkdir accepts an existing one. A failed removal is
    // ignored.
    return record.call == SystemCall::unlink || (record.call == SystemCall::lstat && leadsNowhere(error));
}

/// Whether the call opens the parent of a new directory, to sync it.
bool opensParentOfNew(const std::vector<CallRecord>& calls, std::size_t index)
{
    const auto isParentOf = [&](const CallRecord& earlier) {
        return earlier.call == SystemCall::mkdir && earlier.error == 0 &&
               std::filesystem::path(earlier.path).parent_path() == calls[index].path;
    };
    const auto end = calls.begin() + static_cast<std::ptrdiff_t>(index);
    return calls[index].call == SystemCall::open && std::any_of(calls.begin(), end, isParentOf);
}

int reported(const CallRecord& record, int error)
{
    if (record.call == SystemCall::rename && error == unknownError) {
        return EIO;
    }
    // An existing name whose target stat cannot find is an error: EEXIST.
    return record.call == SystemCall::stat && leadsNowhere(error) ? EEXIST : error;
}

}  // namespace

bool isContinued(SystemCall call)
{
    return call == SystemCall::open || call == SystemCall::read || call == SystemCall::write ||
           call == SystemCall::fsync || call == SystemCall::chmod;
}

Expectation expectedOfSave(const Situation& situation, const std::vector<CallRecord>& calls,
                           std::size_t index, const Fault& fault)
{
    const std::size_t fileCount = situation.store == StoreKind::state ? 2 : 1;
    const Version before = situation.before == Before::earlierFile ? Version::older : Version::none;
    Expectation expected{.error = 0, .files = std::vector<Version>(fileCount, Version::newer)};
    // The parent of a new directory may be writable but not readable.
    const bool mayNotOpen = fault.error == EACCES && !fault.fromThereOn && opensParentOfNew(calls, index);
    if (mayNotOpen || isAbsorbed(calls[index], fault.error)) {
        return expected;
    }
    expected.error = reported(calls[index], fault.error);
    std::size_t replaced = 0;
    for (std::size_t earlier = 0; earlier < index; ++earlier) {
        replaced += calls[earlier].call == SystemCall::rename ? 1 : 0;
    }
    for (std::size_t file = replaced; file < fileCount; ++file) {
        expected.files[file] = before;
    }
    return expected;
}

}  // namespace quillmere::test
