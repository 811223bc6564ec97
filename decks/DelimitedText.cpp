#include "decks/DelimitedText.h"

#include "base/CodePage.h"

#include <algorithm>
#include <array>
#include <csv.h>
#include <new>
#include <utility>

namespace {

constexpr unsigned char NoQuote = 0;
constexpr std::size_t BlockSize = 4096;  // by which the parser's buffer for a field grows

int NoSpace(unsigned char) { return 0; }  // blanks belong to the field

class Parser {
 public:
  Parser(char separator, QuoteRule rule) {
    // Every row end is reported, those of empty lines too: so a new row is told from the middle of
    // a quoted field.
    unsigned char options = CSV_REPALL_NL;
    if (rule == QuoteRule::Strict) options |= CSV_STRICT;
    if (::csv_init(&m_parser, options) != 0) throw std::bad_alloc();
    ::csv_set_delim(&m_parser, static_cast<unsigned char>(separator));
    ::csv_set_space_func(&m_parser, NoSpace);
    ::csv_set_blk_size(&m_parser, BlockSize);
    if (rule == QuoteRule::None) ::csv_set_quote(&m_parser, NoQuote);
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  ~Parser() { ::csv_free(&m_parser); }

  bool Feed(std::string_view piece) {
    return Done(::csv_parse(&m_parser, piece.data(), piece.size(), TakeField, TakeRowEnd, this) ==
                piece.size());
  }
  /// False when a quoted field is still open: then one more line end does not end the row either.
  bool Finish() {
    rowIsOpen = true;
    return Feed("\n") && !rowIsOpen &&
           Done(::csv_fini(&m_parser, TakeField, TakeRowEnd, this) == 0);
  }

  /// A row that has begun is not over.
  bool rowIsOpen = false;
  bool isTooLarge = false;
  std::vector<Text> fields;
  std::vector<std::vector<Text>> finished;

 private:
  bool Done(bool well) {
    if (!well && ::csv_error(&m_parser) == CSV_ENOMEM) throw std::bad_alloc();
    return well;
  }
  static void TakeField(void* data, std::size_t size, void* self) {
    auto& parser = *static_cast<Parser*>(self);
    if (size > LongestField || parser.fields.size() >= MostFields) {
      parser.isTooLarge = true;
      return;
    }
    parser.fields.push_back(data == nullptr ? Text()
                                            : FromUtf8({static_cast<const char*>(data), size}));
  }
  static void TakeRowEnd(int, void* self) {
    auto& parser = *static_cast<Parser*>(self);
    parser.rowIsOpen = false;
    if (!parser.fields.empty()) parser.finished.push_back(std::exchange(parser.fields, {}));
  }

  csv_parser m_parser{};
};

/// The beginning of `utf8`, up to the end of its first line (LF, CR LF or CR) if that is not far;
/// it may end within a character.
std::string_view FirstPiece(std::string_view utf8) {
  constexpr std::size_t MostBytes = 65536;
  const std::string_view piece = utf8.substr(0, MostBytes);
  const std::size_t end = piece.find_first_of("\r\n");
  if (end == std::string_view::npos) return piece;
  return utf8.substr(0, end + (utf8.substr(end).starts_with("\r\n") ? 2 : 1));
}

bool EndsLine(std::string_view piece) { return piece.back() == '\r' || piece.back() == '\n'; }

/// U+FFFD for each null character.
std::string WithoutNulls(std::string_view piece) {
  std::string kept;
  for (const char byte : piece) {
    if (byte == '\0') {
      kept += "\xEF\xBF\xBD";
    } else {
      kept += byte;
    }
  }
  return kept;
}

bool NeedsQuotes(TextView field, char separator) {
  if (field.empty()) return false;
  if (field.front() == u' ' || field.back() == u' ' || field.front() == u'#') return true;
  // A line of this and one separator would say what parts the fields.
  if (field.starts_with(u"sep=")) return true;
  if (field.find_first_of(u"\"\r\n") != TextView::npos || field.find(u'\0') != TextView::npos) {
    return true;
  }
  // In a file with commas, all that may part fields: who reads it may have to find out which does.
  const bool guessed = separator != '\t' && field.find_first_of(u"\t,;") != TextView::npos;
  return guessed || field.find(static_cast<char16_t>(separator)) != TextView::npos;
}

}  // namespace

TableEnd ReadDelimited(std::string_view utf8, char separator, QuoteRule rule, int firstLine,
                       const RowListener& listener) {
  Parser parser(separator, rule);
  int line = firstLine;
  int rowLine = firstLine;
  const auto tellRows = [&] {
    for (std::vector<Text>& fields : parser.finished) {
      DelimitedRow row{rowLine, std::move(fields)};
      if (listener) listener(row);
    }
    parser.finished.clear();
  };
  while (!utf8.empty()) {
    const std::string_view piece = FirstPiece(utf8);
    utf8.remove_prefix(piece.size());
    if (!std::exchange(parser.rowIsOpen, true)) rowLine = line;
    // The parser's "no quote" is the null character, which no text of words holds.
    const bool hasNull = rule == QuoteRule::None && piece.find('\0') != std::string_view::npos;
    if (!parser.Feed(hasNull ? WithoutNulls(piece) : piece)) return {line, 0};
    if (parser.isTooLarge) return {0, rowLine};
    tellRows();
    if (EndsLine(piece)) ++line;
  }
  if (!parser.Finish()) return {rowLine, 0};
  if (parser.isTooLarge) return {0, rowLine};
  tellRows();
  return {};
}

FittingRule FindFittingRule(std::string_view utf8, char separator, QuoteRule otherwise,
                            int firstLine) {
  const TableEnd strict = ReadDelimited(utf8, separator, QuoteRule::Strict, firstLine, {});
  if (strict.brokenLine == 0) return {QuoteRule::Strict, 0, strict};
  return {otherwise, strict.brokenLine, ReadDelimited(utf8, separator, otherwise, firstLine, {})};
}

char GuessSeparator(std::string_view utf8, char fallback) {
  constexpr std::array<char, 3> Candidates = {'\t', ',', ';'};
  std::array<int, Candidates.size()> counts{};
  bool quoted = false;
  for (const char byte : utf8) {
    if (byte == '"') quoted = !quoted;
    if (quoted) continue;
    if (byte == '\n' || byte == '\r') break;
    for (std::size_t i = 0; i < Candidates.size(); ++i) {
      if (byte == Candidates[i]) ++counts[i];
    }
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  const std::size_t preferred = static_cast<std::size_t>(
      std::find(Candidates.begin(), Candidates.end(), fallback) - Candidates.begin());
  if (*most == 0 || (preferred < counts.size() && counts[preferred] == *most)) return fallback;
  return Candidates[static_cast<std::size_t>(most - counts.begin())];
}

std::string WriteRow(const std::vector<Text>& fields, char separator) {
  std::string utf8;
  const bool onlyEmpty =
      std::all_of(fields.begin(), fields.end(), [](const Text& field) { return field.empty(); });
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) utf8 += separator;
    // A row of nothing would be an empty line, and those give no row.
    if (NeedsQuotes(fields[i], separator) || (i == 0 && onlyEmpty)) {
      utf8.append("\"").append(ToUtf8(ReplaceAll(fields[i], u"\"", u"\"\""))).append("\"");
    } else {
      utf8.append(ToUtf8(fields[i]));
    }
  }
  return utf8.append("\r\n");
}
