#pragma once

#include "base/Files.h"
#include "base/Text.h"

#include <functional>
#include <string_view>

/// Where a stack was last read or written, and what its file held then: by this a save notices that
/// somebody else has changed the file meanwhile. A size and a hash of the whole content, for times
/// are too coarse and can be set.
struct StackOrigin {
  StackOrigin() = default;
  StackOrigin(Text filePath, FileFacts facts, std::string_view content)
      : path(std::move(filePath)),
        file(std::move(facts)),
        m_size(content.size()),
        m_hash(HashOf(content)) {}

  /// True for the same place, whatever file lies there now, and for the same file in any place: a
  /// program that saves makes a new file in the old place, and a folder that is renamed takes its
  /// files along.
  /// @param foundPath  as it is found on disk
  bool IsAt(const Text& foundPath, const FileFacts& found) const {
    if (path.empty()) return false;
    const bool samePlace = path == foundPath || (found.isThere && file.realPath == found.realPath);
    return samePlace || file.IsSameFile(found);
  }

  bool IsContent(std::string_view content) const {
    return content.size() == m_size && HashOf(content) == m_hash;
  }

  Text path;  ///< as it is found on disk; empty for a stack that has no file yet
  FileFacts file;

 private:
  static std::size_t HashOf(std::string_view content) {
    return std::hash<std::string_view>()(content);
  }

  std::size_t m_size = 0;
  std::size_t m_hash = 0;
};
