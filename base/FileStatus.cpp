#include "base/FileStatus.h"

#include <cerrno>

Text ErrorText(FileStatus status) {
  switch (status) {
    case FileStatus::InvalidCall:
      return u"Invalid procedure call or argument";
    case FileStatus::Overflow:
      return u"Overflow";
    case FileStatus::OutOfMemory:
      return u"Out of memory";
    case FileStatus::SubscriptOutOfRange:
      return u"Subscript out of range";
    case FileStatus::BadFileName:
      return u"Bad file name or number";
    case FileStatus::FileNotFound:
      return u"File not found";
    case FileStatus::FileAlreadyOpen:
      return u"File already open";
    case FileStatus::DeviceError:
      return u"Device I/O error";
    case FileStatus::FileAlreadyExists:
      return u"File already exists";
    case FileStatus::DiskFull:
      return u"Disk full";
    case FileStatus::PastEnd:
      return u"Input past end of file";
    case FileStatus::IllegalName:
      return u"Bad file name";
    case FileStatus::TooManyFiles:
      return u"Too many files";
    case FileStatus::DeviceUnavailable:
      return u"Device unavailable";
    case FileStatus::PermissionDenied:
      return u"Permission denied";
    case FileStatus::DiskNotReady:
      return u"Disk not ready";
    case FileStatus::DifferentDrive:
      return u"Can't rename with different drive";
    case FileStatus::PathAccess:
      return u"Path/File access error";
    case FileStatus::PathNotFound:
      return u"Path not found";
    case FileStatus::InvalidPicture:
      return u"Invalid picture";
    case FileStatus::PrinterError:
      return u"Printer error";
    case FileStatus::Ok:
    case FileStatus::Declined:
      break;
  }
  return u"Application-defined or object-defined error";
}

FileStatus StatusOfSystemError(int errorNumber) {
  switch (errorNumber) {
    case 0:
      return FileStatus::Ok;
    case ENOENT:
      return FileStatus::FileNotFound;
    case ENOTDIR:
    case ELOOP:
      return FileStatus::PathNotFound;
    case EISDIR:
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOTEMPTY:
      return FileStatus::PathAccess;
    case ETXTBSY:
    case EBUSY:
    case EAGAIN:
      return FileStatus::PermissionDenied;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
      return FileStatus::IllegalName;
    case ENXIO:
    case ENODEV:
    case EHOSTDOWN:
    case ENETUNREACH:
      return FileStatus::DeviceUnavailable;
    case ETIMEDOUT:
      return FileStatus::DiskNotReady;
    case ENOSPC:
    case EFBIG:
      return FileStatus::DiskFull;
    case EMFILE:
    case ENFILE:
      return FileStatus::TooManyFiles;
    case EEXIST:
      return FileStatus::FileAlreadyExists;
    case EXDEV:
      return FileStatus::DifferentDrive;
    case ENOMEM:
      return FileStatus::OutOfMemory;
#ifdef EDQUOT
    case EDQUOT:
      return FileStatus::DiskFull;
#endif
#ifdef ENOMEDIUM
    case ENOMEDIUM:
      return FileStatus::DiskNotReady;
#endif
    default:
      return FileStatus::DeviceError;
  }
}
