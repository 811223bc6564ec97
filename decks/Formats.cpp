#include "decks/Formats.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "decks/AnkiText.h"
#include "decks/Differences.h"
#include "decks/Kvtml.h"
#include "decks/KvtmlWriter.h"
#include "decks/NativeStack.h"
#include "decks/TextEncoding.h"

#include <algorithm>
#include <array>

namespace {

struct Named {
  std::string_view name;
  DeckFormat format;
  std::string_view words;  ///< as they stand in a sentence
};
constexpr std::array<Named, 6> Formats = {{{"qbc", DeckFormat::Stack, "a stack file"},
                                           {"qbs", DeckFormat::Import, "an import file"},
                                           {"tsv", DeckFormat::Tsv, "tab-separated text"},
                                           {"csv", DeckFormat::Csv, "comma-separated text"},
                                           {"kvtml", DeckFormat::Kvtml, "a vocabulary file"},
                                           {"anki", DeckFormat::Anki, "Anki's text file"}}};

const Named& NamedFormat(DeckFormat format) {
  return *std::find_if(Formats.begin(), Formats.end(),
                       [&](const Named& named) { return named.format == format; });
}

bool EndsWith(TextView name, TextView extension) {
  return name.size() >= extension.size() &&
         EqualIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

char SeparatorOf(DeckFormat format, char wanted) {
  if (wanted != 0) return wanted;
  return format == DeckFormat::Csv ? ',' : '\t';
}

bool ReadRows(DeckFormat format, std::string_view utf8, const ReadOptions& options, Deck& deck,
              Findings& findings) {
  if (format == DeckFormat::Anki) return ReadAnkiText(utf8, options.columns, deck, findings);
  return ReadWordTable(utf8,
                       {.separator = SeparatorOf(format, options.separator),
                        .guessSeparator = options.separator == 0 && format == DeckFormat::Csv,
                        .heading = options.heading,
                        .columns = options.columns},
                       deck, findings);
}

/// A file of rows, encoded.
std::string WriteRows(DeckFormat format, const Deck& deck, const WriteOptions& options,
                      std::string_view encoding) {
  const auto writeTo = [&](const RowWriter& write) {
    if (format == DeckFormat::Anki) return WriteAnkiText(deck, write);
    WriteWordTable(deck, SeparatorOf(format, options.separator), options.heading, write);
  };
  // Counted first: bytes that grow as they come take up to three times their room.
  std::size_t size = 0;
  std::string bytes;
  TextEncoder counter(encoding);
  writeTo([&](std::string_view utf8) {
    bytes.clear();
    counter.Append(utf8, bytes);
    size += bytes.size();
  });
  bytes.clear();
  counter.End(bytes);
  bytes.reserve(size + bytes.size());
  bytes.clear();
  TextEncoder encoder(encoding);
  writeTo([&](std::string_view utf8) { encoder.Append(utf8, bytes); });
  encoder.End(bytes);
  return bytes;
}

}  // namespace

std::string StackEncodingName(std::string_view bytes) {
  return std::string(EncodingOf(bytes) == FileEncoding::MarkedUtf8
                         ? MarkedUtf8Name
                         : std::string_view("windows-1252"));
}

std::string_view FormatName(DeckFormat format) { return NamedFormat(format).name; }

std::optional<DeckFormat> FormatOfName(std::string_view name) {
  const auto* const found = std::find_if(Formats.begin(), Formats.end(),
                                         [&](const Named& named) { return named.name == name; });
  if (found == Formats.end()) return std::nullopt;
  return found->format;
}

std::optional<DeckFormat> FormatForReading(TextView fileName, std::string_view bytes) {
  if (ContainsIgnoringCase(fileName, u".QBS")) return DeckFormat::Import;  // as the reader has it
  if (!EndsWith(fileName, u".txt")) return FormatForWriting(fileName);
  Text text;
  std::string encoding;
  Findings ignored;
  if (!DecodeForeignText(bytes.substr(0, 4096), {}, text, encoding, ignored)) return std::nullopt;
  return LooksLikeAnkiText(text) ? DeckFormat::Anki : DeckFormat::Tsv;
}

std::optional<DeckFormat> FormatForWriting(TextView fileName) {
  if (EndsWith(fileName, u".qbc")) return DeckFormat::Stack;
  if (EndsWith(fileName, u".tsv") || EndsWith(fileName, u".tab")) return DeckFormat::Tsv;
  if (EndsWith(fileName, u".csv")) return DeckFormat::Csv;
  if (EndsWith(fileName, u".kvtml")) return DeckFormat::Kvtml;
  if (EndsWith(fileName, u".txt")) return DeckFormat::Anki;
  return std::nullopt;
}

bool ReadDeck(DeckFormat format, std::string_view bytes, TextView fileName,
              const ReadOptions& options, Deck& deck, std::string& usedEncoding,
              Findings& findings) {
  if (format == DeckFormat::Kvtml) {
    return ReadKvtml(bytes, options.encoding, options.columns, deck, usedEncoding, findings);
  }
  const bool native = format == DeckFormat::Stack || format == DeckFormat::Import;
  if (native && options.encoding.empty()) {
    usedEncoding = StackEncodingName(bytes);
    return ReadNativeDeck(bytes, fileName, deck, findings);
  }
  std::string storage;
  std::string_view utf8;
  if (!DecodeToUtf8(bytes, options.encoding, storage, utf8, usedEncoding, findings)) return false;
  if (!native) return ReadRows(format, utf8, options, deck, findings);
  const std::string ours = EncodeFileText(FromUtf8(utf8));
  storage = {};  // the room is needed
  return ReadNativeDeck(ours, fileName, deck, findings);
}

std::string WriteDeck(DeckFormat format, const Deck& deck, const WriteOptions& options,
                      Findings& findings) {
  if (format == DeckFormat::Stack) return WriteNativeStack(deck, findings);
  std::string bytes;
  if (format == DeckFormat::Kvtml) {
    bytes = WriteKvtml(deck);
  } else {
    const std::string_view encoding =
        options.encoding.empty() ? DefaultEncoding : std::string_view(options.encoding);
    if (!IsKnownEncoding(encoding)) {
      findings.push_back(Failed(FindingKind::Encoding, 0,
                                "no encoding is called “" + std::string(encoding) + "”"));
      return {};
    }
    bytes = WriteRows(format, deck, options, encoding);
  }
  Deck readBack;
  std::string encoding;
  Findings ignored;
  const ReadOptions asWritten{
      .encoding = format == DeckFormat::Kvtml ? std::string() : options.encoding,
      .separator = SeparatorOf(format, options.separator),
      .heading = options.heading == Heading::Yes ? Heading::Yes : Heading::Guess,
      .columns = {}};
  if (!ReadDeck(format, bytes, {}, asWritten, readBack, encoding, ignored)) {
    findings.insert(findings.end(), ignored.begin(), ignored.end());
    return {};
  }
  ListDifferences(deck, readBack, NamedFormat(format).words, findings);
  return bytes;
}
