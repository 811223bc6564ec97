#pragma once

#include "base/Files.h"
#include "decks/Formats.h"
#include "decks/MediaCopy.h"

#include <optional>
#include <string>
#include <vector>

struct ConvertOptions {
  std::optional<DeckFormat> from;  ///< else by the name of the input, or what stands in it
  std::optional<DeckFormat> to;    ///< else by the name of the output
  ReadOptions read;
  WriteOptions write;
  std::optional<Text> topic;        ///< instead of the input's
  std::optional<Text> description;  ///< instead of the input's
  bool swap = false;                ///< fronts become backs
  bool split = false;               ///< more cards than a stack holds make several stacks
  bool strict = false;              ///< whatever is lost is an error
  bool force = false;               ///< existing files may be replaced
  bool copyMedia = false;           ///< pictures and sounds go along
};

/// A file to be written.
struct OutputFile {
  Text path;
  std::string bytes;
  std::size_t cards = 0;
};

struct Conversion {
  std::vector<OutputFile> outputs;
  MediaWay way;
  std::vector<MediaCopy> media;  ///< what can be copied
  std::size_t mediaLeft = 0;     ///< how many could not, by the findings
  std::size_t mediaCopied = 0;
  Findings findings;
};

/// Works out what becomes of a file; writes nothing.
/// @param bytes    the input's content
/// @param inPath   its media are named from its folder
/// @param outPath  of the output; split stacks are numbered "name-1.QBC", ...
/// @return false when nothing is to be written: the last finding, or with `strict` any, says why
bool PlanConversion(Files& files, std::string bytes, const Text& inPath, const Text& outPath,
                    const ConvertOptions& options, Conversion& conversion);

/// Writes the outputs, all of them or none, then copies the media.
/// @return false when no output was written; the last finding says why
bool WriteConversion(Files& files, Conversion& conversion);
