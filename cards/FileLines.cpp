#include "cards/FileLines.h"

#include <algorithm>

FileLines::FileLines(std::string_view content) : m_rest(content), m_encoding(EncodingOf(content)) {
  constexpr char EndMark = 26;  // some old editors end a text file with it
  if (m_encoding == FileEncoding::MarkedUtf8) m_rest.remove_prefix(Utf8Mark.size());
  if (m_rest.ends_with(EndMark)) m_rest.remove_suffix(1);
  m_lineEnd = m_rest.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
}

FileStatus FileLines::Read(Text& line) {
  if (AtEnd()) return FileStatus::PastEnd;
  line.clear();
  ++m_lineNumber;
  const std::size_t length = std::min(m_rest.find(m_lineEnd), m_rest.size());
  m_last = m_rest.substr(0, length);
  AppendDecoded(line, m_last, m_encoding);
  m_rest.remove_prefix(std::min(length + m_lineEnd.size(), m_rest.size()));
  return FileStatus::Ok;
}
