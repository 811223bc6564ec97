#pragma once

#include "base/Files.h"
#include "decks/Formats.h"
#include "decks/MediaFolders.h"
#include "settings/TopicList.h"

#include <string>

struct CheckOptions {
  const TopicList* topics = nullptr;  ///< the configured ones; none are checked without
  ReadOptions read;                   ///< for the files of other programs
  std::optional<DeckFormat> format;   ///< of all files; else by their names
};

/// A file, what is in it, and what is to be said about it.
struct FileReport {
  Text path;
  std::optional<DeckFormat> format;
  std::string encoding;
  std::string lineEnds;
  std::size_t bytes = 0;
  std::size_t cards = 0;
  MediaCount media;
  Text topic;
  Text description;
  Findings findings;  ///< by line, those about the whole file first
};

/// Checks a file: one of ours as the program would read it, one of another program for what a stack
/// could not hold of it.
FileReport CheckFile(Files& files, MediaFolders& folders, const Text& path,
                     const CheckOptions& options);

/// Only what is in the file, and what keeps it from being read. The cards go to `deck`.
FileReport DescribeFile(Files& files, const Text& path, const CheckOptions& options, Deck& deck);
