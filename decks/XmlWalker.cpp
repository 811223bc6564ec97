#include "decks/XmlWalker.h"

#include "decks/Finding.h"

#include <optional>
#include <utility>

std::string ShownName(std::string_view name) {
  constexpr std::size_t Longest = 40;
  return Printable(CutText(FromUtf8(name.substr(0, 4 * Longest)), Longest));
}

bool XmlWalker::Skip() {
  const bool attributes = xml.HasAttributes();
  return SkipInside() || attributes;
}

bool XmlWalker::SkipInside() {
  bool content = false;
  std::size_t depth = 1;
  while (depth > 0) {
    switch (xml.Next()) {
      case XmlReader::Event::Start:
        ++depth;
        content = content || xml.HasAttributes();
        break;
      case XmlReader::Event::Words:
        content = content || HasInk(xml.Piece());
        break;
      case XmlReader::Event::End:
        --depth;
        break;
      case XmlReader::Event::Done:
      case XmlReader::Event::Broken:
        return content;
    }
  }
  return content;
}

std::string XmlWalker::Attribute(std::string_view wanted) const {
  std::optional<std::string> found;
  xml.ForEachAttribute([&](std::string_view name, const std::string& value) {
    if (name == wanted && !found) found = value;
  });
  return std::move(found).value_or(std::string());
}
