#pragma once

#include "base/CodePage.h"
#include "base/FileStatus.h"
#include "base/Text.h"

#include <string_view>

/// The lines of a file's content, one after the other. Where the content holds any CR LF, only CR
/// LF ends a line; elsewhere LF does. The last line needs no end; a single byte 26 at the very end
/// is dropped. Any other byte is data.
class FileLines {
 public:
  /// @param content  must outlive the object
  explicit FileLines(std::string_view content);

  bool AtEnd() const { return m_rest.empty(); }

  /// @return `PastEnd` when no byte is left; `line` is untouched then.
  FileStatus Read(Text& line);

  /// The line that was read last as it stands in the content, without its end.
  std::string_view LastLine() const { return m_last; }
  FileEncoding Encoding() const { return m_encoding; }

  /// Number of the line that was read last, from 1; 0 before the first.
  int LineNumber() const { return m_lineNumber; }

 private:
  std::string_view m_rest;
  std::string_view m_last;
  int m_lineNumber = 0;
  FileEncoding m_encoding;
  std::string_view m_lineEnd;
};
