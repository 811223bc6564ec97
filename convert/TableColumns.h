#pragma once

#include "convert/Deck.h"
#include "convert/DelimitedText.h"
#include "convert/Finding.h"

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

/// Turns a field into a side's text and media; sets all that it knows.
using FieldDecoder = std::function<void(const Text& field, DeckSide& side)>;

/// A card for each row from `first` on. Fields that no card can take are counted and listed by
/// column, and rows with a single field by line.
void AddCards(const std::vector<DelimitedRow>& rows, std::size_t first,
              std::vector<TableColumn> columns, const FieldDecoder& decode, Deck& deck,
              Findings& findings);
