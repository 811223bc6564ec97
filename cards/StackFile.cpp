#include "cards/StackFile.h"

#include "base/CodePage.h"
#include "cards/CardStack.h"
#include "cards/SideLine.h"

#include <algorithm>

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

FileStatus StackFile::WriteSide(Text& text, TextView soundPath, TextView picturePath) {
  Text line;
  const FileStatus status = EncodeSideLine(text, OneLine(soundPath), OneLine(picturePath), line);
  if (status == FileStatus::Ok) WriteLine(line);
  return status;
}

FileStatus StackFile::Close(StackOrigin& origin) {
  const std::string content = EncodeFileText(m_content);
  const FileStatus status = m_replacement->Commit(content);
  if (status == FileStatus::Ok) origin = StackOrigin(m_path, content);
  return status;
}

void StackFile::Abandon() {
  StackOrigin part;  // no stack's: the file holds less than the stack
  if (!m_replacement->ReplacesExisting()) (void)Close(part);
}
