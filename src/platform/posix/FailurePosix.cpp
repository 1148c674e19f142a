#include "platform/posix/FailurePosix.h"

#include <cerrno>

namespace dialwright {
namespace {

struct ErrnoRow {
  int error;
  Failure failure;
};

constexpr ErrnoRow errnoRows[] = {
    {ENOENT, Failure::fileNotFound},      {ENOTDIR, Failure::pathNotFound},
    {ELOOP, Failure::pathFileAccess},     {EISDIR, Failure::pathFileAccess},
    {EACCES, Failure::permissionDenied},  {EPERM, Failure::permissionDenied},
    {EROFS, Failure::permissionDenied},   {ETXTBSY, Failure::permissionDenied},
    {EBUSY, Failure::permissionDenied},   {ENOSPC, Failure::diskFull},
    {EDQUOT, Failure::diskFull},          {EFBIG, Failure::diskFull},
    {EIO, Failure::deviceIOError},        {EEXIST, Failure::fileAlreadyExists},
    {ENAMETOOLONG, Failure::badFileName}, {EINVAL, Failure::badFileName},
    {ENXIO, Failure::deviceUnavailable},  {ENODEV, Failure::deviceUnavailable},
};

}  // namespace

Failure FailureOfErrno(int error) {
  for (const ErrnoRow& row : errnoRows) {
    if (row.error == error) return row.failure;
  }
  return Failure::pathFileAccess;
}

}  // namespace dialwright
