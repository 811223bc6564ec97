#include "decks/KvtmlWriter.h"

#include "base/CodePage.h"
#include "base/Version.h"

#include <fmt/format.h>

namespace {

constexpr std::string_view FileHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE kvtml PUBLIC \"kvtml2.dtd\" \"http://edu.kde.org/kvtml/kvtml2.dtd\">\n";

/// What XML can hold of a text, with the line breaks that it keeps, its signs as references.
void AppendXmlText(std::string& xml, TextView text) {
  Text kept = ReplaceAll(WithCrLf(text), LineBreak, u"\n");
  std::erase_if(kept, [](char16_t unit) {
    const bool control = unit < u' ' && unit != u'\n' && unit != u'\t';
    return control || unit == 0xFFFE || unit == 0xFFFF;
  });
  for (const char byte : ToUtf8(kept)) {
    if (byte == '&') {
      xml += "&amp;";
    } else if (byte == '<') {
      xml += "&lt;";
    } else if (byte == '>') {
      xml += "&gt;";
    } else {
      xml += byte;
    }
  }
}

void AddElement(std::string& xml, std::string_view indent, std::string_view name, TextView text) {
  xml.append(indent).append("<").append(name).append(">");
  AppendXmlText(xml, text);
  xml.append("</").append(name).append(">\n");
}

void AddTranslation(std::string& xml, int id, const DeckSide& side) {
  constexpr std::string_view Indent = "        ";
  xml += fmt::format("      <translation id=\"{}\">\n", id);
  AddElement(xml, Indent, "text", side.text);
  if (!side.picture.empty()) AddElement(xml, Indent, "image", side.picture);
  if (!side.sound.empty()) AddElement(xml, Indent, "sound", side.sound);
  xml += "      </translation>\n";
}

}  // namespace

Text OurLesson(const Deck& deck) {
  return deck.description.empty() ? Text(u"Cards") : deck.description;
}

std::string WriteKvtml(const Deck& deck) {
  std::string xml(FileHead);
  xml += "<kvtml version=\"2.0\">\n  <information>\n";
  AddElement(xml, "    ", "generator", Text(OurProgram).append(ProgramVersion));
  AddElement(xml, "    ", "title", deck.description);
  if (!deck.topic.empty()) AddElement(xml, "    ", "category", deck.topic);
  xml += "  </information>\n  <identifiers>\n";
  for (std::size_t i = 0; i < OurLanguages.size(); ++i) {
    xml += fmt::format("    <identifier id=\"{}\">\n", i);
    AddElement(xml, "      ", "name", OurLanguages[i]);
    xml += "    </identifier>\n";
  }
  xml += "  </identifiers>\n";
  xml += deck.cards.empty() ? "  <entries />\n" : "  <entries>\n";
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    xml += fmt::format("    <entry id=\"{}\">\n", i);
    AddTranslation(xml, 0, deck.cards[i].sides[0]);
    AddTranslation(xml, 1, deck.cards[i].sides[1]);
    xml += "    </entry>\n";
  }
  if (!deck.cards.empty()) xml += "  </entries>\n";
  // Vocabulary programs show words by lesson, and none that is in no lesson.
  xml += "  <lessons>\n    <container>\n";
  AddElement(xml, "      ", "name", OurLesson(deck));
  AddElement(xml, "      ", "inpractice", u"true");
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    xml += fmt::format("      <entry id=\"{}\" />\n", i);
  }
  xml += "    </container>\n  </lessons>\n</kvtml>\n";
  return xml;
}
