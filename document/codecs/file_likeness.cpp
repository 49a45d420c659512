#include "file_likeness.h"

#include <QByteArray>
#include <QByteArrayList>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using FileStatus = struct stat;

constexpr const char *AccessList = "system.posix_acl_access";
constexpr mode_t PermissionBits = 07777;

/// Calls @p ask for a size, then for that many bytes.
template <typename Ask> std::optional<QByteArray> all_bytes(Ask ask)
{
    const ssize_t size = ask(nullptr, 0);
    if (size < 0)
        return std::nullopt;
    QByteArray bytes(size, Qt::Uninitialized);
    const ssize_t count = ask(bytes.data(), static_cast<std::size_t>(size));
    if (count < 0)
        return std::nullopt;
    bytes.truncate(count);
    return bytes;
}

bool copy_owner(const FileStatus &from, int to)
{
    FileStatus own{};
    if (::fstat(to, &own) != 0)
        return false;
    return (own.st_uid == from.st_uid && own.st_gid == from.st_gid) || ::fchown(to, from.st_uid, from.st_gid) == 0;
}

bool copy_attribute(int from, int to, const QByteArray &name)
{
    const auto value =
        all_bytes([&](char *bytes, std::size_t size) { return ::fgetxattr(from, name.constData(), bytes, size); });
    const bool copied =
        value && ::fsetxattr(to, name.constData(), value->constData(), static_cast<std::size_t>(value->size()), 0) == 0;
    return copied || name.startsWith("security."); // the system's own
}

bool copy_attributes(int from, int to)
{
    const auto names = all_bytes([from](char *bytes, std::size_t size) { return ::flistxattr(from, bytes, size); });
    if (!names)
        return errno == ENOTSUP;
    return std::ranges::all_of(
        names->split('\0'), [=](const QByteArray &name) { return name.isEmpty() || copy_attribute(from, to, name); });
}

} // namespace

bool copy_likeness(int fromDescriptor, int toDescriptor)
{
    FileStatus from{};
    if (::fstat(fromDescriptor, &from) != 0 || !copy_owner(from, toDescriptor))
        return false;
    // A directory may give its files a list that the old file does not have.
    (void)::fremovexattr(toDescriptor, AccessList);
    // After the owner, whose change takes bits away, and before the list, which it would change.
    return ::fchmod(toDescriptor, from.st_mode & PermissionBits) == 0 && copy_attributes(fromDescriptor, toDescriptor);
}
