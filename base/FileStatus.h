#pragma once

#include "base/Text.h"

#include <cstdint>

/// How an operation ended: 0, or an error number of the table that ErrorText reads.
enum class [[nodiscard]] FileStatus : std::int16_t{
    Ok = 0,
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    BadFileName = 52,
    FileNotFound = 53,
    FileAlreadyOpen = 55,
    DeviceError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    PastEnd = 62,
    IllegalName = 64,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    DifferentDrive = 74,
    PathAccess = 75,
    PathNotFound = 76,
    InvalidPicture = 481,
    PrinterError = 482,
    Declined = 255,  ///< the user declined to overwrite; no text belongs to it
};

/// The system's text for an error number: "File not found", "Disk full". A number without one reads
/// "Application-defined or object-defined error".
Text ErrorText(FileStatus status);

/// The status of a failed system call, by its errno. A missing file and a missing folder share one
/// errno: this gives FileNotFound, and who knows the folder corrects it. 0 is Ok.
FileStatus StatusOfSystemError(int errorNumber);
