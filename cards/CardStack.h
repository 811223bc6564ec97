#pragma once

#include "base/Int16.h"
#include "base/Text.h"
#include "cards/StackOrigin.h"

#include <cstdint>
#include <vector>

inline constexpr int MaxCards = 300;
inline constexpr int StackNameWidth = 256;   ///< characters of a stack's name
inline constexpr int DescriptionWidth = 64;  ///< characters of a description
inline constexpr int MaxLoadedText = 256;    ///< characters of a side's text that survive a load

/// Sides are numbered so in card stacks and in study.
enum Side : int { Front = 0, Back = 1 };

/// One loaded stack. Cards are numbered 1..CardCount; every card up to MaxCards can be read and
/// written, what lies above CardCount has no meaning. Card 0 is never used and reads as empty. A
/// card number outside 0..300 or a side other than 0 and 1 throws Fault(SubscriptOutOfRange).
///
/// All texts of a stack lie in one block, with a small record for each; a collection of a thousand
/// stacks then costs little more than its files. A view that a getter returns is good until the
/// next change of the stack.
class CardStack {
 public:
  Int16 TopicIndex = 0;
  Text StackName;  ///< as shown; kept without padding, at most StackNameWidth characters
  Int16 CardCount = 0;
  StackOrigin Origin;

  TextView SideText(int card, int side) const { return View(FieldAt(card, side, TextField)); }
  /// Full path of the side's sound file, or as the user typed it; empty when there is none.
  Text SideSound(int card, int side) const { return Media(FieldAt(card, side, SoundField)); }
  Text SidePicture(int card, int side) const { return Media(FieldAt(card, side, PictureField)); }

  void SetSideText(int card, int side, TextView text);
  void SetSideSound(int card, int side, TextView path);
  void SetSidePicture(int card, int side, TextView path);

  /// The folder that most media paths of this stack begin with; it is stored once. Changing it does
  /// not change any path. Set before the first card.
  void SetMediaFolder(TextView folder);

  /// Makes room for about `units` units of text, once, before a stack is filled.
  void Reserve(std::size_t units) { m_block.reserve(units); }
  /// Gives back what Reserve and changes left over.
  void Shrink();

 private:
  enum Kind : int { TextField, SoundField, PictureField, KindCount };
  struct Field {
    std::uint32_t offset = 0;
    std::uint32_t length : 31 = 0;
    std::uint32_t inMediaFolder : 1 = 0;
  };

  static std::size_t Place(int card, int side, Kind kind);
  Field FieldAt(int card, int side, Kind kind) const;
  TextView View(Field field) const { return TextView(m_block).substr(field.offset, field.length); }
  Text Media(Field field) const;
  void Set(int card, int side, Kind kind, TextView text, bool inMediaFolder);
  void SetMedia(int card, int side, Kind kind, TextView path);
  void DropUnused();

  Text m_mediaFolder;
  Text m_block;
  std::size_t m_unused = 0;  // units of m_block that no field holds
  std::vector<Field> m_fields;
};
