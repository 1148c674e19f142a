#include "platform/win32/FailureWin32.h"

#include <windows.h>

namespace dialwright {
namespace {

struct ErrorRow {
  DWORD error;
  Failure failure;
};

constexpr DWORD errorDiskQuotaExceeded = 1295;  // not in every compiler's headers

constexpr ErrorRow errorRows[] = {
    {ERROR_FILE_NOT_FOUND, Failure::fileNotFound},
    {ERROR_PATH_NOT_FOUND, Failure::pathNotFound},
    {ERROR_DIRECTORY, Failure::pathNotFound},
    {ERROR_INVALID_DRIVE, Failure::pathNotFound},
    {ERROR_BAD_NETPATH, Failure::pathNotFound},
    {ERROR_BAD_NET_NAME, Failure::pathNotFound},
    {ERROR_ACCESS_DENIED, Failure::permissionDenied},
    {ERROR_SHARING_VIOLATION, Failure::permissionDenied},
    {ERROR_LOCK_VIOLATION, Failure::permissionDenied},
    {ERROR_WRITE_PROTECT, Failure::permissionDenied},
    {ERROR_USER_MAPPED_FILE, Failure::permissionDenied},
    {ERROR_DELETE_PENDING, Failure::permissionDenied},
    {ERROR_PRIVILEGE_NOT_HELD, Failure::permissionDenied},
    {ERROR_INVALID_NAME, Failure::badFileName},
    {ERROR_BAD_PATHNAME, Failure::badFileName},
    {ERROR_FILENAME_EXCED_RANGE, Failure::badFileName},
    {ERROR_ALREADY_EXISTS, Failure::fileAlreadyExists},
    {ERROR_FILE_EXISTS, Failure::fileAlreadyExists},
    {ERROR_DISK_FULL, Failure::diskFull},
    {ERROR_HANDLE_DISK_FULL, Failure::diskFull},
    {errorDiskQuotaExceeded, Failure::diskFull},
    {ERROR_FILE_TOO_LARGE, Failure::diskFull},
    {ERROR_CRC, Failure::deviceIOError},
    {ERROR_IO_DEVICE, Failure::deviceIOError},
    {ERROR_WRITE_FAULT, Failure::deviceIOError},
    {ERROR_READ_FAULT, Failure::deviceIOError},
    {ERROR_GEN_FAILURE, Failure::deviceIOError},
    {ERROR_UNEXP_NET_ERR, Failure::deviceIOError},
    {ERROR_NETNAME_DELETED, Failure::deviceIOError},
    {ERROR_NOT_READY, Failure::deviceUnavailable},
    {ERROR_DEV_NOT_EXIST, Failure::deviceUnavailable},
};

}  // namespace

Failure FailureOfWin32(unsigned long error) {
  for (const ErrorRow& row : errorRows) {
    if (row.error == error) return row.failure;
  }
  return Failure::pathFileAccess;
}

void ThrowLastError() { throw RuntimeFailure(FailureOfWin32(GetLastError())); }

}  // namespace dialwright
