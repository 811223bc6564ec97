#pragma once

#include "base/Text.h"

#include <functional>
#include <string_view>

/// Where a stack was last read or written, and what its file held then: by this a save notices that
/// somebody else has changed the file meanwhile. A size and a hash of the whole content, for times
/// are too coarse and can be set.
struct StackOrigin {
  StackOrigin() = default;
  StackOrigin(Text filePath, std::string_view content)
      : path(std::move(filePath)), m_size(content.size()), m_hash(HashOf(content)) {}

  bool IsContent(std::string_view content) const {
    return content.size() == m_size && HashOf(content) == m_hash;
  }

  Text path;  ///< as it is found on disk; empty for a stack that has no file yet

 private:
  static std::size_t HashOf(std::string_view content) {
    return std::hash<std::string_view>()(content);
  }

  std::size_t m_size = 0;
  std::size_t m_hash = 0;
};
