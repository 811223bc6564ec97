#include "decks/TableColumns.h"

#include "base/LetterCase.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <utility>

namespace {

struct RoleName {
  TextView name;
  ColumnRole role;
};

// The first name of each role is the one that we write.
constexpr std::array<RoleName, 15> RoleNames = {{
    {u"Front", ColumnRole::FrontText},
    {u"Question", ColumnRole::FrontText},
    {u"Term", ColumnRole::FrontText},
    {u"Word", ColumnRole::FrontText},
    {u"Front text", ColumnRole::FrontText},
    {u"Back", ColumnRole::BackText},
    {u"Answer", ColumnRole::BackText},
    {u"Definition", ColumnRole::BackText},
    {u"Translation", ColumnRole::BackText},
    {u"Meaning", ColumnRole::BackText},
    {u"Back text", ColumnRole::BackText},
    {u"Front sound", ColumnRole::FrontSound},
    {u"Front picture", ColumnRole::FrontPicture},
    {u"Back sound", ColumnRole::BackSound},
    {u"Back picture", ColumnRole::BackPicture},
}};

void PlaceText(std::vector<TableColumn>& columns, int wanted, ColumnRole role) {
  const auto hasRole = [&](const TableColumn& column) { return column.role == role; };
  if (wanted > 0) {
    for (TableColumn& column : columns) {
      if (hasRole(column)) column.role = ColumnRole::None;
    }
    const auto at = static_cast<std::size_t>(wanted) - 1;
    if (at >= columns.size()) columns.resize(at + 1);
    columns[at].role = role;
    return;
  }
  if (std::any_of(columns.begin(), columns.end(), hasRole)) return;
  const auto free = std::find_if(columns.begin(), columns.end(), [](const TableColumn& column) {
    return column.role == ColumnRole::None;
  });
  if (free != columns.end()) {
    free->role = role;
  } else {
    columns.push_back({role, {}});
  }
}

std::string ColumnLabel(std::size_t column, const Text& name) {
  return name.empty() ? fmt::format("column {}", column + 1)
                      : fmt::format("column {} ({})", column + 1, Quoted(name));
}

void SetMediaName(Text& name, const Text& field) {
  if (!field.empty()) name = Text(TrimBlanks(field));
}

/// @return false when a card has no place for it
bool PlaceField(ColumnRole role, Text& field, const FieldDecoder& decode, DeckCard& card) {
  DeckSide& front = card.sides[0];
  DeckSide& back = card.sides[1];
  switch (role) {
    case ColumnRole::FrontText:
      decode(field, front);
      return true;
    case ColumnRole::BackText:
      decode(field, back);
      return true;
    case ColumnRole::FrontSound:
      SetMediaName(front.sound, field);
      return true;
    case ColumnRole::FrontPicture:
      SetMediaName(front.picture, field);
      return true;
    case ColumnRole::BackSound:
      SetMediaName(back.sound, field);
      return true;
    case ColumnRole::BackPicture:
      SetMediaName(back.picture, field);
      return true;
    case ColumnRole::Program:
      return true;
    case ColumnRole::None:
      break;
  }
  return field.empty();
}

}  // namespace

ColumnRole RoleOfName(TextView name) {
  const auto* const found = std::find_if(
      RoleNames.begin(), RoleNames.end(),
      [&](const RoleName& known) { return EqualIgnoringCase(known.name, TrimBlanks(name)); });
  return found == RoleNames.end() ? ColumnRole::None : found->role;
}

TextView NameOfRole(ColumnRole role) {
  const auto* const found = std::find_if(RoleNames.begin(), RoleNames.end(),
                                         [&](const RoleName& known) { return known.role == role; });
  return found == RoleNames.end() ? TextView() : found->name;
}

bool IsHeading(const std::vector<Text>& fields) {
  const auto has = [&](ColumnRole role) {
    return std::any_of(fields.begin(), fields.end(),
                       [&](const Text& field) { return RoleOfName(field) == role; });
  };
  return has(ColumnRole::FrontText) && has(ColumnRole::BackText);
}

std::vector<TableColumn> ColumnsOfHeading(const std::vector<Text>& fields) {
  std::vector<TableColumn> columns;
  for (const Text& field : fields) {
    ColumnRole role = RoleOfName(field);
    // Of two columns that could be the same, the first one is.
    const bool taken = std::any_of(columns.begin(), columns.end(),
                                   [&](const TableColumn& column) { return column.role == role; });
    if (taken) role = ColumnRole::None;
    columns.push_back({role, field});
  }
  return columns;
}

void PlaceTexts(std::vector<TableColumn>& columns, TextColumns wanted) {
  // A column that is asked for must not be given to the other side first.
  if (wanted.front > 0) PlaceText(columns, wanted.front, ColumnRole::FrontText);
  if (wanted.back > 0) PlaceText(columns, wanted.back, ColumnRole::BackText);
  if (wanted.front <= 0) PlaceText(columns, 0, ColumnRole::FrontText);
  if (wanted.back <= 0) PlaceText(columns, 0, ColumnRole::BackText);
}

Finding TooLargeRow(int line) {
  return Failed(FindingKind::Malformed, line,
                fmt::format("a row of more than {} fields, or a field of more than {} bytes",
                            MostFields, LongestField));
}

void CardRows::Take(DelimitedRow& row) {
  if (row.fields.size() > m_columns.size()) m_columns.resize(row.fields.size());
  m_lost.resize(m_columns.size());
  DeckCard card;
  card.line = row.line;
  if (row.fields.size() == 1 && m_columns.size() > 1) {
    m_findings.push_back(FoundAt(
        FindingKind::IgnoredLine, row.line, static_cast<int>(m_deck.cards.size()) + 1, -1,
        fmt::format("only one field, {}; the other side is empty", Quoted(row.fields.front()))));
  }
  for (std::size_t i = 0; i < row.fields.size(); ++i) {
    if (PlaceField(m_columns[i].role, row.fields[i], m_decode, card)) continue;
    if (m_lost[i].count++ == 0) m_lost[i].line = row.line;
  }
  m_deck.cards.push_back(std::move(card));
}

void CardRows::ListLosses() {
  for (std::size_t i = 0; i < m_lost.size(); ++i) {
    const LostFields& lost = m_lost[i];
    if (lost.count == 0) continue;
    m_findings.push_back(Found(
        FindingKind::LostField, lost.line,
        fmt::format(
            "{} has no place on a card; {} in it {} left out", ColumnLabel(i, m_columns[i].name),
            lost.count == 1 ? std::string("one field") : fmt::format("{} fields", lost.count),
            lost.count == 1 ? "is" : "are")));
  }
}
