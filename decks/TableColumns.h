#pragma once

#include "decks/Deck.h"
#include "decks/DelimitedText.h"
#include "decks/Finding.h"

#include <functional>
#include <vector>

/// What a column of a table is to a card.
enum class ColumnRole {
  None,  ///< nothing; what stands there is lost
  FrontText,
  BackText,
  FrontSound,
  FrontPicture,
  BackSound,
  BackPicture,
  Program,  ///< belongs to the program that wrote the file, not to the card
};

struct TableColumn {
  ColumnRole role = ColumnRole::None;
  Text name;  ///< empty when the file gives none
};

/// The columns that hold the texts, counted from 1; 0 means the first ones that do.
struct TextColumns {
  int front = 0;
  int back = 0;
};

/// The role that a column of this name has by itself: "Front", "Question", "Back sound", letter
/// case ignored.
ColumnRole RoleOfName(TextView name);

/// The name that we give to a column.
TextView NameOfRole(ColumnRole role);

/// True for a row of names of columns: it names a front and a back.
bool IsHeading(const std::vector<Text>& fields);

/// Columns under the names of a heading.
std::vector<TableColumn> ColumnsOfHeading(const std::vector<Text>& fields);

/// Gives the texts' roles to the columns that `wanted` says, else, where no column has them, to the
/// first ones without a role. Makes room for as many columns as it takes.
void PlaceTexts(std::vector<TableColumn>& columns, TextColumns wanted);

/// Turns a field into a side's text and media; sets all that it knows, and may take the field.
using FieldDecoder = std::function<void(Text& field, DeckSide& side)>;

/// What is said about a row that goes beyond MostFields or LongestField.
Finding TooLargeRow(int line);

/// Fields of one column that no card takes.
struct LostFields {
  int count = 0;
  int line = 0;  ///< of the first
};

/// Makes a card of each row that it is given. Fields that no card can take are counted, and rows
/// with a single field listed.
class CardRows {
 public:
  CardRows(std::vector<TableColumn> columns, FieldDecoder decode, Deck& deck, Findings& findings)
      : m_columns(std::move(columns)),
        m_decode(std::move(decode)),
        m_deck(deck),
        m_findings(findings) {}

  void Take(DelimitedRow& row);

  /// Lists by column what was lost.
  void ListLosses();

 private:
  std::vector<TableColumn> m_columns;
  FieldDecoder m_decode;
  Deck& m_deck;
  Findings& m_findings;
  std::vector<LostFields> m_lost;
};
