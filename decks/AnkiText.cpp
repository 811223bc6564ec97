#include "decks/AnkiText.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "decks/Markup.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <optional>

namespace {

constexpr TextView DeckSeparator = u"::";

struct NamedSeparator {
  TextView name;
  char separator;
};
constexpr std::array<NamedSeparator, 6> Separators = {{{u"Tab", '\t'},
                                                       {u"Comma", ','},
                                                       {u"Semicolon", ';'},
                                                       {u"Space", ' '},
                                                       {u"Pipe", '|'},
                                                       {u"Colon", ':'}}};

/// What the lines at the start say.
struct Header {
  std::optional<char> separator;
  std::optional<bool> html;
  Text columns;
  Text deck;
  Text tags;
  Text topic;
  Text description;
  std::vector<int> programColumns;  ///< counted from 1
  bool hasNoteType = false;
  int tagsColumn = 0;
  int deckColumn = 0;
  int lines = 0;
};

std::optional<char> SeparatorOf(TextView value) {
  for (const NamedSeparator& known : Separators) {
    if (EqualIgnoringCase(known.name, TrimBlanks(value))) return known.separator;
  }
  if (value.size() == 1 && value.front() <= 0x7F && value.front() != u'"') {
    return static_cast<char>(value.front());
  }
  return std::nullopt;
}

int ColumnNumber(TextView value) {
  const double number = LeadingNumber(value);
  return number >= 1 && number <= 1000 ? static_cast<int>(number) : 0;
}

void TakeHeaderLine(Header& header, TextView key, TextView value) {
  const auto is = [&](TextView name) { return EqualIgnoringCase(TrimBlanks(key), name); };
  if (is(u"separator")) {
    header.separator = SeparatorOf(value);
  } else if (is(u"html")) {
    header.html = EqualIgnoringCase(TrimBlanks(value), u"true");
  } else if (is(u"columns")) {
    header.columns = value;
  } else if (is(u"deck")) {
    header.deck = TrimBlanks(value);
  } else if (is(u"tags")) {
    header.tags = TrimBlanks(value);
  } else if (is(u"topic")) {
    header.topic = value;
  } else if (is(u"description")) {
    header.description = value;
  } else if (is(u"tags column")) {
    header.tagsColumn = ColumnNumber(value);
  } else if (is(u"deck column")) {
    header.deckColumn = ColumnNumber(value);
    header.programColumns.push_back(header.deckColumn);
  } else if (is(u"notetype")) {
    header.hasNoteType = true;
  } else if (is(u"notetype column") || is(u"guid column")) {
    header.programColumns.push_back(ColumnNumber(value));
  }
}

Header TakeHeader(std::string_view& utf8) {
  Header header;
  while (utf8.starts_with('#')) {
    const std::size_t end = std::min(utf8.find_first_of("\r\n"), utf8.size());
    const std::string_view line = utf8.substr(1, end - 1);
    const std::size_t colon = line.find(':');
    if (colon != std::string_view::npos) {
      TakeHeaderLine(header, FromUtf8(line.substr(0, colon)), FromUtf8(line.substr(colon + 1)));
    }
    utf8.remove_prefix(end);
    if (utf8.starts_with('\r')) utf8.remove_prefix(1);
    if (utf8.starts_with('\n')) utf8.remove_prefix(1);
    ++header.lines;
  }
  return header;
}

std::vector<TableColumn> ColumnsOf(const Header& header, char separator, TextColumns wanted) {
  std::vector<TableColumn> columns;
  if (!header.columns.empty()) {
    const std::string names = ToUtf8(header.columns);
    const FittingRule fitting = FindFittingRule(names, separator, QuoteRule::None, 1);
    (void)ReadDelimited(names, separator, fitting.rule, 1, [&](DelimitedRow& row) {
      if (columns.empty()) columns = ColumnsOfHeading(row.fields);
    });
  }
  for (const int column : header.programColumns) {
    const auto at = static_cast<std::size_t>(column);
    if (at > columns.size()) columns.resize(at);
    if (column > 0) columns[at - 1].role = ColumnRole::Program;
  }
  const auto tags = static_cast<std::size_t>(header.tagsColumn);
  if (tags > columns.size()) columns.resize(tags);
  // The tags take no text's place; what stands there is listed as lost.
  if (tags > 0) columns[tags - 1] = {ColumnRole::Program, u"Tags"};
  PlaceTexts(columns, wanted);
  if (tags > 0 && columns[tags - 1].role == ColumnRole::Program) {
    columns[tags - 1].role = ColumnRole::None;
  }
  return columns;
}

/// The deck that the rows name, where they have a column for it.
class DeckOfRows {
 public:
  DeckOfRows(Header& header, Findings& findings)
      : m_header(header),
        m_findings(findings),
        m_done(header.deckColumn == 0 || !header.deck.empty()) {}

  void Take(const DelimitedRow& row) {
    if (m_done) return;
    const auto at = static_cast<std::size_t>(m_header.deckColumn) - 1;
    if (row.fields.size() <= at || row.fields[at].empty()) return;
    if (m_header.deck.empty()) m_header.deck = row.fields[at];
    if (row.fields[at] == m_header.deck) return;
    m_done = true;
    m_findings.push_back(
        Found(FindingKind::LostField, row.line,
              fmt::format("cards of several decks become one list: {}, {} and so on",
                          Quoted(m_header.deck), Quoted(row.fields[at]))));
  }

 private:
  Header& m_header;
  Findings& m_findings;
  bool m_done;
};

void NameDeck(const Header& header, Deck& deck) {
  deck.topic = TrimBlanks(header.topic);
  deck.description = TrimBlanks(header.description);
  if (!deck.topic.empty() || !deck.description.empty() || header.deck.empty()) return;
  const std::size_t at = header.deck.find(DeckSeparator);
  if (at == Text::npos) {
    deck.description = header.deck;
    return;
  }
  deck.topic = header.deck.substr(0, at);
  deck.description = header.deck.substr(at + DeckSeparator.size());
}

std::string OneLine(TextView text) { return ToUtf8(ReplaceAll(WithCrLf(text), LineBreak, u" ")); }

/// LooksMarkedUp of a text of any length, piece by piece.
bool LooksMarkedUpSomewhere(std::string_view utf8) {
  constexpr std::size_t Piece = 65536;
  constexpr std::size_t Overlap = 16;  // more than the longest mark
  for (; !utf8.empty(); utf8.remove_prefix(std::min(Piece, utf8.size()))) {
    if (LooksMarkedUp(FromUtf8(utf8.substr(0, Piece + Overlap)))) return true;
  }
  return false;
}

}  // namespace

bool LooksLikeAnkiText(TextView text) {
  constexpr std::array<TextView, 9> Keys = {
      u"#separator:", u"#html:",        u"#columns:",     u"#deck:",           u"#tags:",
      u"#notetype:",  u"#guid column:", u"#tags column:", u"#notetype column:"};
  return std::any_of(Keys.begin(), Keys.end(), [&](TextView key) {
    return EqualIgnoringCase(text.substr(0, key.size()), key);
  });
}

bool ReadAnkiText(std::string_view utf8, TextColumns wanted, Deck& deck, Findings& findings) {
  Header header = TakeHeader(utf8);
  const char separator = header.separator.value_or(GuessSeparator(utf8, '\t'));
  const FittingRule fitting = FindFittingRule(utf8, separator, QuoteRule::None, header.lines + 1);
  if (fitting.end.tooLargeLine != 0) {
    findings.push_back(TooLargeRow(fitting.end.tooLargeLine));
    return false;
  }
  if (fitting.end.brokenLine != 0) {
    findings.push_back(
        Failed(FindingKind::Malformed, fitting.end.brokenLine, "the fields cannot be told apart"));
    return false;
  }
  const bool html = header.html ? *header.html : LooksMarkedUpSomewhere(utf8);
  MarkupLosses losses;
  bool quotesStay = false;  // those in marks go with them
  const auto decode = [&](Text& field, DeckSide& side) {
    DeckSide decoded = DecodeMarkup(field, html, losses);
    quotesStay = quotesStay || decoded.text.find(u'"') != Text::npos;
    side.text = std::move(decoded.text);
    if (!decoded.sound.empty()) side.sound = std::move(decoded.sound);
    if (!decoded.picture.empty()) side.picture = std::move(decoded.picture);
  };
  DeckOfRows deckOfRows(header, findings);
  Findings ofCards;
  CardRows cards(ColumnsOf(header, separator, wanted), decode, deck, ofCards);
  (void)ReadDelimited(utf8, separator, fitting.rule, header.lines + 1, [&](DelimitedRow& row) {
    deckOfRows.Take(row);
    cards.Take(row);
  });
  cards.ListLosses();
  if (fitting.strictBrokenLine != 0 && quotesStay) {
    findings.push_back(Found(FindingKind::Malformed, fitting.strictBrokenLine,
                             "quotes are not used as in a table; they stay in the texts"));
  }
  if (header.hasNoteType || header.programColumns.size() > (header.deckColumn > 0 ? 1U : 0U)) {
    findings.push_back(Remarked(0, "note types and identifiers are Anki's own and stay behind"));
  }
  if (!header.tags.empty()) {
    findings.push_back(
        Found(FindingKind::LostField, 0,
              fmt::format("the tags {} have no place on a card", Quoted(header.tags))));
  }
  findings.Append(ofCards);
  NameDeck(header, deck);
  if (losses.formatting) {
    findings.push_back(Found(FindingKind::LostField, 0,
                             "bold letters, colours and other formatting are left out"));
  }
  losses.others.AppendTo(findings);
  for (const Text& name : losses.media) {
    findings.push_back(
        Found(FindingKind::LostField, 0,
              fmt::format("{} is left out: a side has one picture and one sound", Quoted(name))));
  }
  if (losses.moreMedia > 0) {
    findings.push_back(
        Found(FindingKind::LostField, 0,
              fmt::format("{} more pictures and sounds are left out", losses.moreMedia)));
  }
  return true;
}

void WriteAnkiText(const Deck& deck, const RowWriter& write) {
  const std::string topic = OneLine(deck.topic);
  const std::string description = OneLine(deck.description);
  const auto writeKey = [&](std::string_view key, std::string_view value) {
    write(std::string("#").append(key).append(":").append(value).append("\r\n"));
  };
  writeKey("separator", "tab");
  writeKey("html", "true");
  if (!topic.empty() || !description.empty()) {
    const TextView between = topic.empty() || description.empty() ? u"" : DeckSeparator;
    writeKey("deck", topic + ToUtf8(between) + description);
  }
  if (!topic.empty()) writeKey("topic", topic);
  if (!description.empty()) writeKey("description", description);
  writeKey("columns", ToUtf8(NameOfRole(ColumnRole::FrontText)) + "\t" +
                          ToUtf8(NameOfRole(ColumnRole::BackText)));
  for (const DeckCard& card : deck.cards) {
    write(WriteRow({EncodeMarkup(card.sides[0]), EncodeMarkup(card.sides[1])}, '\t'));
  }
}
