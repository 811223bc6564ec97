#include "decks/WordTable.h"

#include "decks/QuoteRepair.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <optional>

namespace {

/// The separator that a first line "sep=;" names; spreadsheets write it. 0 when there is none.
char TakeSeparatorLine(std::string_view& utf8) {
  constexpr std::string_view Mark = "sep=";
  if (!utf8.starts_with(Mark) || utf8.size() <= Mark.size()) return 0;
  const char separator = utf8[Mark.size()];
  if (static_cast<unsigned char>(separator) > 0x7F) return 0;
  const std::size_t end = Mark.size() + 1;
  if (end < utf8.size() && utf8[end] != '\r' && utf8[end] != '\n') return 0;
  utf8.remove_prefix(std::min(utf8.size(), end));
  if (utf8.starts_with('\r')) utf8.remove_prefix(1);
  if (utf8.starts_with('\n')) utf8.remove_prefix(1);
  return separator;
}

bool HasMedia(const Deck& deck) {
  return std::any_of(deck.cards.begin(), deck.cards.end(), [](const DeckCard& card) {
    return std::any_of(card.sides.begin(), card.sides.end(), [](const DeckSide& side) {
      return !side.sound.empty() || !side.picture.empty();
    });
  });
}

Text Joined(const std::vector<Text>& fields) {
  Text joined;
  for (const Text& field : fields) joined.append(joined.empty() ? u"" : u", ").append(field);
  return joined;
}

bool ListTableEnd(const TableEnd& end, Findings& findings) {
  if (end.brokenLine != 0) {
    findings.push_back(
        Failed(FindingKind::Malformed, end.brokenLine, "a quote that opens here is never closed"));
  }
  if (end.tooLargeLine != 0) findings.push_back(TooLargeRow(end.tooLargeLine));
  return end.IsWell();
}

}  // namespace

bool ReadWordTable(std::string_view utf8, WordTableOptions options, Deck& deck,
                   Findings& findings) {
  int firstLine = 1;
  if (const char said = TakeSeparatorLine(utf8); said != 0) {
    firstLine = 2;
    if (options.guessSeparator) options.separator = said;
  } else if (options.guessSeparator) {
    options.separator = GuessSeparator(utf8, options.separator);
  }
  // Lists that are typed by hand with tabs hold quotes as they come; with commas they protect.
  const QuoteRule otherwise = options.separator == '\t' ? QuoteRule::None : QuoteRule::Lenient;
  FittingRule fitting = FindFittingRule(utf8, options.separator, otherwise, firstLine);
  RepairedQuotes repaired;
  if (fitting.rule == QuoteRule::Lenient) {
    repaired = RepairQuotes(utf8, options.separator, firstLine);
    utf8 = repaired.text;
    fitting.end = ReadDelimited(utf8, options.separator, fitting.rule, firstLine, {});
    if (repaired.unclosedLine != 0) fitting.end.brokenLine = repaired.unclosedLine;
  }
  if (!ListTableEnd(fitting.end, findings)) return false;
  if (fitting.strictBrokenLine != 0) {
    findings.push_back(Found(FindingKind::Malformed, fitting.strictBrokenLine,
                             otherwise == QuoteRule::None
                                 ? "quotes are not used as in a table; they stay in the texts"
                                 : "a quote stands inside a field; read as well as possible"));
  }

  std::optional<CardRows> cards;
  const auto decode = [](Text& field, DeckSide& side) {
    side.text = field.find_first_of(LineBreak) == Text::npos ? std::move(field) : WithCrLf(field);
  };
  const auto take = [&](DelimitedRow& row) {
    if (cards) return cards->Take(row);
    const bool heading = options.heading == Heading::Yes ||
                         (options.heading == Heading::Guess && IsHeading(row.fields));
    std::vector<TableColumn> columns;
    if (heading) {
      columns = ColumnsOfHeading(row.fields);
      findings.push_back(
          Remarked(row.line, fmt::format("read as a heading: {}", Quoted(Joined(row.fields)))));
    }
    PlaceTexts(columns, options.columns);
    cards.emplace(std::move(columns), decode, deck, findings);
    if (!heading) cards->Take(row);
  };
  (void)ReadDelimited(utf8, options.separator, fitting.rule, firstLine, take);
  if (cards) cards->ListLosses();
  return true;
}

void WriteWordTable(const Deck& deck, char separator, Heading heading, const RowWriter& write) {
  const bool media = HasMedia(deck);
  const bool looksLikeHeading =
      !deck.cards.empty() &&
      IsHeading({deck.cards.front().sides[0].text, deck.cards.front().sides[1].text});
  if (heading == Heading::Yes || media || looksLikeHeading) {
    std::vector<Text> names;
    for (const ColumnRole role :
         {ColumnRole::FrontText, ColumnRole::BackText, ColumnRole::FrontSound,
          ColumnRole::FrontPicture, ColumnRole::BackSound, ColumnRole::BackPicture}) {
      if (media || role == ColumnRole::FrontText || role == ColumnRole::BackText) {
        names.emplace_back(NameOfRole(role));
      }
    }
    write(WriteRow(names, separator));
  }
  for (const DeckCard& card : deck.cards) {
    const auto& [front, back] = card.sides;
    std::vector<Text> fields = {front.text, back.text};
    if (media) fields.insert(fields.end(), {front.sound, front.picture, back.sound, back.picture});
    write(WriteRow(fields, separator));
  }
}
