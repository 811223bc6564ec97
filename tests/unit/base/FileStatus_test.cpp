#include "base/FileStatus.h"

#include "tests/support/TextPrinters.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <map>

namespace {

const std::map<int, TextView>& Texts() {
  static const std::map<int, TextView> texts = {
      {5, u"Invalid procedure call or argument"},
      {6, u"Overflow"},
      {7, u"Out of memory"},
      {9, u"Subscript out of range"},
      {52, u"Bad file name or number"},
      {53, u"File not found"},
      {55, u"File already open"},
      {57, u"Device I/O error"},
      {58, u"File already exists"},
      {61, u"Disk full"},
      {62, u"Input past end of file"},
      {64, u"Bad file name"},
      {67, u"Too many files"},
      {68, u"Device unavailable"},
      {70, u"Permission denied"},
      {71, u"Disk not ready"},
      {74, u"Can't rename with different drive"},
      {75, u"Path/File access error"},
      {76, u"Path not found"},
      {481, u"Invalid picture"},
      {482, u"Printer error"},
  };
  return texts;
}

TEST(ErrorText, HasTheTextOfEveryNumberThatCanComeUp) {
  for (const auto& [number, text] : Texts()) {
    EXPECT_EQ(ErrorText(static_cast<FileStatus>(number)), text) << number;
  }
}

TEST(ErrorText, HasOneTextForEveryOtherNumber) {
  for (int number = 0; number <= 600; ++number) {
    if (Texts().contains(number)) continue;
    ASSERT_EQ(ErrorText(static_cast<FileStatus>(number)),
              u"Application-defined or object-defined error")
        << number;
  }
}

TEST(FileStatus, HasTheNumbersThatItsNamesMean) {
  EXPECT_EQ(static_cast<int>(FileStatus::Ok), 0);
  EXPECT_EQ(static_cast<int>(FileStatus::Overflow), 6);
  EXPECT_EQ(static_cast<int>(FileStatus::FileNotFound), 53);
  EXPECT_EQ(static_cast<int>(FileStatus::FileAlreadyOpen), 55);
  EXPECT_EQ(static_cast<int>(FileStatus::DiskFull), 61);
  EXPECT_EQ(static_cast<int>(FileStatus::PastEnd), 62);
  EXPECT_EQ(static_cast<int>(FileStatus::IllegalName), 64);
  EXPECT_EQ(static_cast<int>(FileStatus::DeviceUnavailable), 68);
  EXPECT_EQ(static_cast<int>(FileStatus::PathAccess), 75);
  EXPECT_EQ(static_cast<int>(FileStatus::PathNotFound), 76);
  EXPECT_EQ(static_cast<int>(FileStatus::Declined), 255);
}

struct SystemError {
  int errorNumber;
  int status;
};

TEST(StatusOfSystemError, FollowsTheTable) {
  constexpr SystemError Table[] = {
      {0, 0},          {ENOENT, 53},      {ENOTDIR, 76},      {ELOOP, 76},       {EISDIR, 75},
      {EACCES, 75},    {EPERM, 75},       {EROFS, 75},        {ETXTBSY, 70},     {EBUSY, 70},
      {EAGAIN, 70},    {EWOULDBLOCK, 70}, {ENAMETOOLONG, 64}, {EINVAL, 64},      {EILSEQ, 64},
      {ENXIO, 68},     {ENODEV, 68},      {EHOSTDOWN, 68},    {ENETUNREACH, 68}, {ENOMEDIUM, 71},
      {ETIMEDOUT, 71}, {EIO, 57},         {ESTALE, 57},       {EBADF, 57},       {ENOSPC, 61},
      {EDQUOT, 61},    {EFBIG, 61},       {EMFILE, 67},       {ENFILE, 67},      {EEXIST, 58},
      {EXDEV, 74},     {ENOTEMPTY, 75},   {ENOMEM, 7},
  };
  for (const auto& [errorNumber, status] : Table) {
    EXPECT_EQ(StatusOfSystemError(errorNumber), static_cast<FileStatus>(status)) << errorNumber;
  }
}

TEST(StatusOfSystemError, TakesAnythingUnknownForADeviceError) {
  for (const int errorNumber : {-1, 100000, EPIPE, ECHILD, EDOM}) {
    EXPECT_EQ(StatusOfSystemError(errorNumber), FileStatus::DeviceError) << errorNumber;
  }
}

}  // namespace
