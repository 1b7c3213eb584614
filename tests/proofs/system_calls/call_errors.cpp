#include "proofs/system_calls/call_errors.hpp"

#include <cerrno>
#include <cstring>

#include "proofs/support/figures.hpp"

namespace quillmere::test {
namespace {

struct Row {
    SystemCall call;
    std::vector<int> errors;
};

// clang-format off
const std::vector<Row> rows = {
    {SystemCall::mkdir,  {ENOSPC, EACCES, EROFS, EEXIST, EINTR, EDQUOT, EIO, EINVAL, ELOOP, EMLINK, ENAMETOOLONG,
                          ENOENT, ENOMEM, ENOTDIR, EPERM, ESTALE}},
    {SystemCall::chmod,  {EPERM, EIO, EROFS, EINTR, EACCES, ELOOP, ENAMETOOLONG, ENOENT, ENOMEM, ENOTDIR, ESTALE}},
    {SystemCall::stat,   {EIO, EACCES, ENOENT, EINTR, ELOOP, ENAMETOOLONG, ENOMEM, ENOTDIR, EOVERFLOW, ESTALE}},
    {SystemCall::lstat,  {EIO, EACCES, ENOENT, EINTR, ELOOP, ENAMETOOLONG, ENOMEM, ENOTDIR, EOVERFLOW, ESTALE}},
    {SystemCall::fstat,  {EIO, ENOMEM, EOVERFLOW, EINTR, EBADF, EACCES, ESTALE}},
    {SystemCall::open,   {ENOSPC, EMFILE, EACCES, EINTR, EROFS, EDQUOT, EEXIST, EFBIG, EIO, EISDIR, ELOOP,
                          ENAMETOOLONG, ENFILE, ENODEV, ENOENT, ENOMEM, ENOTDIR, ENXIO, EOVERFLOW, EPERM, ESTALE,
                          ETXTBSY, EWOULDBLOCK, EINVAL}},
    {SystemCall::read,   {EIO, EISDIR, EINVAL, EINTR, EAGAIN, EBADF, EFAULT, ENOMEM, ESTALE}},
    {SystemCall::write,  {ENOSPC, EDQUOT, EFBIG, EINTR, EIO, EAGAIN, EBADF, EFAULT, EINVAL, ENOMEM, EPERM, ESTALE}},
    {SystemCall::fsync,  {EIO, ENOSPC, EINVAL, EINTR, ENOTSUP, EBADF, EDQUOT, EROFS, ESTALE}},
    {SystemCall::close,  {EIO, ENOSPC, EDQUOT, EINTR, EBADF, ESTALE}},
    {SystemCall::rename, {EXDEV, EISDIR, unknownError, EINTR, ENOSPC, EACCES, EBUSY, EDQUOT, EEXIST, EINVAL, EIO,
                          ELOOP, EMLINK, ENAMETOOLONG, ENOENT, ENOMEM, ENOTDIR, ENOTEMPTY, EPERM, EROFS, ESTALE}},
    {SystemCall::unlink, {EACCES, EROFS, EIO, EINTR, EBUSY, EISDIR, ELOOP, ENAMETOOLONG, ENOENT, ENOMEM, ENOTDIR,
                          EPERM, ESTALE}},
};
// clang-format on

}  // namespace

const std::vector<int>& errorsOf(SystemCall call) { return rows[static_cast<std::size_t>(call)].errors; }

std::vector<int> chosenErrorsOf(SystemCall call, std::size_t ordinal)
{
    constexpr std::size_t few = 2;
    const std::vector<int>& all = errorsOf(call);
    if (inLongForm()) {
        return all;
    }
    std::vector<int> chosen;
    for (std::size_t number = 0; number < few; ++number) {
        chosen.push_back(all[(ordinal * few + number) % all.size()]);
    }
    return chosen;
}

std::string nameOfError(int error)
{
    const char* const name = ::strerrorname_np(error);
    return name ? name : std::to_string(error);
}

}  // namespace quillmere::test
