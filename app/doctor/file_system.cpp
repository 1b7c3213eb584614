#include "doctor/file_system.hpp"

#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <sstream>
#include <string_view>
#include <system_error>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

struct KnownType {
    std::uint32_t magic;  ///< statfs(2)
    std::string_view name;
    bool isInMemory = false;
    bool isOverNetwork = false;
};

constexpr std::uint32_t zfsMagic = 0x2fc12fc1;
constexpr std::uint32_t ntfsMagic = 0x7366746e;
constexpr std::uint32_t bcachefsMagic = 0xca451a4e;

constexpr auto knownTypes = std::to_array<KnownType>({
    {EXT4_SUPER_MAGIC, "ext4"},  // ext2 and ext3 have the same number
    {BTRFS_SUPER_MAGIC, "btrfs"},
    {XFS_SUPER_MAGIC, "xfs"},
    {F2FS_SUPER_MAGIC, "f2fs"},
    {zfsMagic, "zfs"},
    {bcachefsMagic, "bcachefs"},
    {REISERFS_SUPER_MAGIC, "reiserfs"},
    {OVERLAYFS_SUPER_MAGIC, "overlayfs"},
    {ECRYPTFS_SUPER_MAGIC, "ecryptfs"},
    {FUSE_SUPER_MAGIC, "fuse"},
    {MSDOS_SUPER_MAGIC, "vfat"},
    {EXFAT_SUPER_MAGIC, "exfat"},
    {ntfsMagic, "ntfs"},
    {TMPFS_MAGIC, "tmpfs", true},
    {RAMFS_MAGIC, "ramfs", true},
    {NFS_SUPER_MAGIC, "nfs", false, true},
    {CIFS_SUPER_MAGIC, "cifs", false, true},
    {SMB2_SUPER_MAGIC, "smb2", false, true},
    {CEPH_SUPER_MAGIC, "ceph", false, true},
    {AFS_SUPER_MAGIC, "afs", false, true},
    {V9FS_MAGIC, "9p", false, true},
});

[[noreturn]] void fail(const char* call, const fs::path& path)
{
    throw fs::filesystem_error(call, path, {errno, std::generic_category()});
}

std::string inHexadecimal(std::uint32_t number)
{
    std::ostringstream text;
    text << "type 0x" << std::hex << number;
    return text.str();
}

}  // namespace

FileSystemType fileSystemAt(const fs::path& path)
{
    struct statfs status {};
    if (::statfs(path.c_str(), &status) == -1) {
        fail("statfs", path);
    }
    // The field is signed on some machines; the number has 32 bits on all.
    const auto magic = static_cast<std::uint32_t>(status.f_type);
    const auto* const known = std::find_if(knownTypes.begin(), knownTypes.end(),
                                           [&](const KnownType& type) { return type.magic == magic; });
    if (known == knownTypes.end()) {
        return {.name = inHexadecimal(magic)};
    }
    return {.name = std::string(known->name),
            .isInMemory = known->isInMemory,
            .isOverNetwork = known->isOverNetwork};
}

Room roomAt(const fs::path& path)
{
    struct statvfs status {};
    if (::statvfs(path.c_str(), &status) == -1) {
        fail("statvfs", path);
    }
    // File systems that make inodes as they need them report none at all.
    constexpr auto unlimited = std::numeric_limits<std::uintmax_t>::max();
    return {.bytes = static_cast<std::uintmax_t>(status.f_bavail) * status.f_frsize,
            .files = status.f_files == 0 ? unlimited : status.f_favail};
}

fs::path nearestExisting(fs::path path)
{
    std::error_code isMissing;
    while (!fs::exists(path, isMissing) && path.has_relative_path()) {
        path = path.parent_path();
    }
    return path;
}

}  // namespace quillmere::doctor
