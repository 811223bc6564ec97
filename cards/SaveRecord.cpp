#include "cards/SaveRecord.h"

#include <algorithm>

void SaveRecord::Note(const StackOrigin& file) {
  const auto earlier = std::find_if(m_saved.begin(), m_saved.end(), [&](const StackOrigin& saved) {
    return saved.IsAt(file.path, file.file);
  });
  if (earlier == m_saved.end()) {
    m_saved.push_back(file);
  } else {
    *earlier = file;
  }
}

bool SaveRecord::IsOurs(const Text& path, const FileFacts& file, std::string_view content) const {
  return std::any_of(m_saved.begin(), m_saved.end(), [&](const StackOrigin& saved) {
    return saved.IsAt(path, file) && saved.IsContent(content);
  });
}
