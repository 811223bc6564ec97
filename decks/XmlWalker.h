#pragma once

#include "base/CodePage.h"
#include "decks/Deck.h"
#include "decks/XmlReader.h"

#include <algorithm>
#include <string>
#include <string_view>

/// True when a text holds more than the space of XML.
template <typename View>
bool HasInk(const View& text) {
  return std::any_of(text.begin(), text.end(), [](auto unit) {
    return unit != ' ' && unit != '\t' && unit != '\r' && unit != '\n';
  });
}

/// The name of an element or attribute for a message: cut, and fit to be shown.
std::string ShownName(std::string_view name);

/// Walks through elements in elements, without a call in a call for those of unknown depth.
class XmlWalker {
 public:
  explicit XmlWalker(std::string_view utf8) : xml(utf8) {}

  /// Calls `child` with the name of each element in the one that has begun, up to its end; `child`
  /// has to read it to its end.
  /// @return true when text stands between them
  template <typename Child>
  bool ForEach(Child child) {
    bool stray = false;
    while (true) {
      const XmlReader::Event event = xml.Next();
      if (event == XmlReader::Event::Start) {
        child(xml.Name());
      } else if (event == XmlReader::Event::Words) {
        stray = stray || HasInk(xml.Piece());
      } else {
        return stray;
      }
    }
  }

  /// Passes over the element that has begun.
  /// @return true when it holds a text or an attribute, in whatever depth, its own included
  bool Skip();
  /// The same, its own attributes aside.
  bool SkipInside();

  /// Beyond so many UTF-16 units a text is of no card, and would take many times its length.
  static constexpr std::size_t LongestText = std::size_t{1} << 20;

  /// The text of the element that has begun, that of the elements in it included. Of one that is
  /// too long only the beginning comes, which is too long as well.
  /// @param mark  called with the name of each of those
  template <typename Mark>
  Text ReadText(Mark mark) {
    Text text;
    std::size_t depth = 1;
    while (depth > 0) {
      switch (xml.Next()) {
        case XmlReader::Event::Start:
          ++depth;
          mark(xml.Name());
          break;
        case XmlReader::Event::Words:
          // No more than it takes to be too long: a character has at most four bytes.
          if (text.size() <= LongestText) {
            AppendDecoded(text, xml.Piece().substr(0, 4 * LongestText + 4),
                          FileEncoding::MarkedUtf8);
          }
          break;
        case XmlReader::Event::End:
          --depth;
          break;
        case XmlReader::Event::Done:
        case XmlReader::Event::Broken:
          depth = 0;
          break;
      }
    }
    return WithCrLf(text);
  }

  /// An attribute of the element that has begun; empty without.
  std::string Attribute(std::string_view wanted) const;

  XmlReader xml;
};
