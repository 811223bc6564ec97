#include "cards/StackFile.h"

#include "base/CodePage.h"
#include "cards/CardStack.h"
#include "cards/SideLine.h"

#include <algorithm>
#include <new>

namespace {

Text OneLine(TextView text) {
  Text line(text);
  std::replace_if(
      line.begin(), line.end(), [](char16_t unit) { return unit == u'\r' || unit == u'\n'; }, u' ');
  return line;
}

}  // namespace

void StackFile::WriteHeader(TextView topicName, TextView description) {
  WriteLine(OneLine(topicName));
  WriteLine(OneLine(FixedWidth(description, DescriptionWidth)));
}

FileStatus StackFile::WriteSide(Text& text, TextView soundPath, TextView picturePath) try {
  Text line;
  const FileStatus status = EncodeSideLine(text, OneLine(soundPath), OneLine(picturePath), line);
  if (status != FileStatus::Ok) return status;
  if (!m_frontAlone) m_wholeCards = m_content.size();
  m_frontAlone = !m_frontAlone;
  WriteLine(line);
  return status;
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}

FileStatus StackFile::Close(StackOrigin& origin) try {
  const std::string content = EncodeFileText(m_content);
  const FileStatus status = m_replacement->Commit(content);
  if (m_record != nullptr) m_record->rescueFolder = m_replacement->Rescued();
  if (status != FileStatus::Ok) return status;
  origin = StackOrigin(m_path, m_replacement->Written(), content);
  if (m_record != nullptr) m_record->Note(origin);
  return status;
} catch (const std::bad_alloc&) {
  return FileStatus::OutOfMemory;
}

void StackFile::Abandon() {
  if (m_frontAlone) m_content.resize(m_wholeCards);
  StackOrigin part;  // no stack's: the file holds less than the stack
  if (!m_replacement->ReplacesExisting()) (void)Close(part);
}
