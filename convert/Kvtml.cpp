#include "convert/Kvtml.h"

#include "base/CodePage.h"
#include "base/Version.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <utility>

namespace {

constexpr const char* DocumentType =
    "kvtml PUBLIC \"kvtml2.dtd\" \"http://edu.kde.org/kvtml/kvtml2.dtd\"";

constexpr TextView OurName = u"quibconv ";

/// Line numbers of places in a text, asked for in any order.
class LineIndex {
 public:
  explicit LineIndex(std::string_view text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos;
         at = text.find('\n', at + 1)) {
      m_ends.push_back(static_cast<std::ptrdiff_t>(at));
    }
  }
  int LineOf(std::ptrdiff_t offset) const {
    if (offset < 0) return 0;
    return 1 + static_cast<int>(std::lower_bound(m_ends.begin(), m_ends.end(), offset) -
                                m_ends.begin());
  }
  int LineOf(const pugi::xml_node& node) const { return LineOf(node.offset_debug()); }

 private:
  std::vector<std::ptrdiff_t> m_ends;
};

/// All text that stands directly in an element.
Text TextOf(const pugi::xml_node& element) {
  std::string content;
  for (const pugi::xml_node& child : element.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
      content += child.value();
  }
  return WithCrLf(FromUtf8(content));
}

bool IsElement(const pugi::xml_node& node) { return node.type() == pugi::node_element; }

/// True when an element holds more than space.
bool HasContent(const pugi::xml_node& element) {
  const pugi::xml_object_range<pugi::xml_node_iterator> children = element.children();
  return std::any_of(children.begin(), children.end(), [](const pugi::xml_node& child) {
    return IsElement(child) ||
           std::string_view(child.value()).find_first_not_of(" \t\r\n") != std::string_view::npos;
  });
}

/// The one lesson that a file of ours has.
Text LessonName(const Deck& deck) {
  return deck.description.empty() ? Text(u"Cards") : deck.description;
}

class Reader {
 public:
  Reader(const pugi::xml_node& root, const LineIndex& lines, Deck& deck, Findings& findings)
      : m_root(root), m_lines(lines), m_deck(deck), m_findings(findings) {}

  void Read(TextColumns wanted) {
    ReadInformation();
    ReadIdentifiers(wanted);
    for (const pugi::xml_node& entry : m_root.child("entries").children("entry")) ReadEntry(entry);
    ReadRest();
    ListLosses();
  }

 private:
  struct Lost {
    int count = 0;
    int line = 0;
  };

  void Lose(const std::string& what, const pugi::xml_node& node) {
    Lost& lost = m_lost[what];
    if (lost.count++ == 0) lost.line = m_lines.LineOf(node);
  }

  void ReadInformation() {
    for (const pugi::xml_node& item : m_root.child("information").children()) {
      if (!IsElement(item)) continue;
      const std::string_view name = item.name();
      if (name == "title") {
        m_deck.description = TrimBlanks(TextOf(item));
      } else if (name == "category") {
        m_deck.topic = TrimBlanks(TextOf(item));
      } else if (name == "generator" || name == "date") {
        m_ofProgram.push_back(m_lines.LineOf(item));
        if (TextOf(item).starts_with(OurName)) m_ofProgram.pop_back();
      } else if (!TextOf(item).empty()) {
        Lose(fmt::format("the {}", item.name()), item);
      }
    }
  }

  void ReadIdentifiers(TextColumns wanted) {
    for (const pugi::xml_node& identifier : m_root.child("identifiers").children("identifier")) {
      m_ids.emplace_back(identifier.attribute("id").value());
      const std::string name = Printable(TextOf(identifier.child("name")));
      m_names.push_back(name.empty() ? m_ids.back() : name);
    }
    // A file without languages still numbers its words.
    while (m_ids.size() < 2) {
      m_ids.push_back(std::to_string(m_ids.size()));
      m_names.push_back(m_ids.back());
    }
    std::vector<TableColumn> columns(m_ids.size());
    PlaceTexts(columns, wanted);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (i >= m_ids.size()) continue;
      if (columns[i].role == ColumnRole::FrontText) m_frontId = m_ids[i];
      if (columns[i].role == ColumnRole::BackText) m_backId = m_ids[i];
    }
  }

  void ReadEntry(const pugi::xml_node& entry) {
    DeckCard& card = m_deck.cards.emplace_back();
    card.line = m_lines.LineOf(entry);
    for (const pugi::xml_node& part : entry.children()) {
      if (!IsElement(part)) continue;
      if (std::string_view(part.name()) != "translation") {
        Lose(fmt::format("<{}>", part.name()), part);
        continue;
      }
      const std::string_view id = part.attribute("id").value();
      if (id == m_frontId) {
        ReadTranslation(part, card.sides[0]);
      } else if (id == m_backId) {
        ReadTranslation(part, card.sides[1]);
      } else if (!TextOf(part.child("text")).empty()) {
        Lose(fmt::format("the language {}", NameOfId(id)), part);
      }
    }
  }

  std::string NameOfId(std::string_view id) const {
    const auto found = std::find(m_ids.begin(), m_ids.end(), id);
    const std::string name = found == m_ids.end()
                                 ? Printable(FromUtf8(id))
                                 : m_names[static_cast<std::size_t>(found - m_ids.begin())];
    return "“" + name + "”";
  }

  void ReadTranslation(const pugi::xml_node& translation, DeckSide& side) {
    for (const pugi::xml_node& part : translation.children()) {
      if (!IsElement(part)) continue;
      const std::string_view name = part.name();
      if (name == "text") {
        side.text = TextOf(part);
      } else if (name == "sound") {
        side.sound = TrimBlanks(TextOf(part));
      } else if (name == "image") {
        side.picture = TrimBlanks(TextOf(part));
      } else if (HasContent(part)) {
        Lose(fmt::format("<{}>", part.name()), part);
      }
    }
  }

  /// Everything beside the cards: lessons, kinds of words, articles.
  void ReadRest() {
    for (const pugi::xml_node& section : m_root.children()) {
      if (!IsElement(section)) continue;
      const std::string_view name = section.name();
      if (name == "information" || name == "entries" || name == "identifiers") continue;
      std::size_t containers = 0;
      for (const pugi::xml_node& container : section.children("container")) {
        ++containers;
        if (name == "lessons" && containers <= MostNames) {
          m_lessons.append(m_lessons.empty() ? "" : ", ");
          m_lessons.append(Quoted(TextOf(container.child("name"))));
        }
      }
      if (containers > MostNames && name == "lessons") m_lessons.append(" and more");
      // A single lesson that is called like the file says nothing of its own.
      const pugi::xml_node lesson = section.child("container");
      const bool nested = !lesson.child("container").empty();
      if (containers == 1 && !nested && TextOf(lesson.child("name")) == LessonName(m_deck)) {
        m_lessons.clear();
      }
      if (containers > 0 && name != "lessons") Lose(fmt::format("<{}>", section.name()), section);
    }
    for (const pugi::xml_node& identifier : m_root.child("identifiers").children("identifier")) {
      for (const pugi::xml_node& part : identifier.children()) {
        const std::string_view name = part.name();
        if (IsElement(part) && name != "name" && name != "locale" && HasContent(part)) {
          Lose(fmt::format("<{}>", part.name()), part);
        }
      }
    }
  }

  void ListLosses() {
    if (!m_ofProgram.empty()) {
      m_findings.push_back(
          Remarked(m_ofProgram.front(), "which program made the file, and when, stays behind"));
    }
    for (const auto& [what, lost] : m_lost) {
      m_findings.push_back(Found(
          FindingKind::LostField, lost.line,
          fmt::format("{} has no place on a card; left out{}", what,
                      lost.count == 1 ? std::string() : fmt::format(" {} times", lost.count))));
    }
    if (!m_lessons.empty()) {
      m_findings.push_back(Found(FindingKind::LostField, m_lines.LineOf(m_root.child("lessons")),
                                 fmt::format("the lessons become one list: {}", m_lessons)));
    }
  }

  static constexpr std::size_t MostNames = 10;  // of lessons that a message lists

  const pugi::xml_node& m_root;
  const LineIndex& m_lines;
  Deck& m_deck;
  Findings& m_findings;
  std::vector<std::string> m_ids;
  std::vector<std::string> m_names;
  std::string m_frontId;
  std::string m_backId;
  std::string m_lessons;
  std::vector<int> m_ofProgram;  // lines that say who made the file
  std::map<std::string, Lost> m_lost;
};

/// What XML can hold of a text, with the line breaks that it keeps.
std::string XmlText(TextView text) {
  Text kept = ReplaceAll(WithCrLf(text), LineBreak, u"\n");
  std::erase_if(kept, [](char16_t unit) {
    const bool control = unit < u' ' && unit != u'\n' && unit != u'\t';
    return control || unit == 0xFFFE || unit == 0xFFFF;
  });
  return ToUtf8(kept);
}

void AddElement(pugi::xml_node& parent, const char* name, TextView text) {
  parent.append_child(name).text().set(XmlText(text).c_str());
}

void AddTranslation(pugi::xml_node& entry, const char* id, const DeckSide& side) {
  pugi::xml_node translation = entry.append_child("translation");
  translation.append_attribute("id").set_value(id);
  AddElement(translation, "text", side.text);
  if (!side.picture.empty()) AddElement(translation, "image", side.picture);
  if (!side.sound.empty()) AddElement(translation, "sound", side.sound);
}

void AddIdentifier(pugi::xml_node& identifiers, const char* id, TextView name) {
  pugi::xml_node identifier = identifiers.append_child("identifier");
  identifier.append_attribute("id").set_value(id);
  AddElement(identifier, "name", name);
}

}  // namespace

bool ReadKvtml(std::string_view bytes, TextColumns wanted, Deck& deck, Findings& findings) {
  pugi::xml_document document;
  const pugi::xml_parse_result parsed =
      document.load_buffer(bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata);
  const LineIndex lines(bytes);
  if (!parsed) {
    findings.push_back(Failed(FindingKind::Malformed, lines.LineOf(parsed.offset),
                              fmt::format("not well-formed XML: {}", parsed.description())));
    return false;
  }
  const pugi::xml_node root = document.child("kvtml");
  const std::string_view version = root.attribute("version").value();
  if (!version.starts_with('2')) {
    findings.push_back(
        Failed(FindingKind::Malformed, lines.LineOf(root),
               root.empty() ? std::string("XML, but not of a vocabulary file: it has no <kvtml>")
                            : fmt::format("a vocabulary file of version {}; only version 2 is read",
                                          version.empty() ? "1" : Printable(FromUtf8(version)))));
    return false;
  }
  Reader(root, lines, deck, findings).Read(wanted);
  return true;
}

std::string WriteKvtml(const Deck& deck) {
  pugi::xml_document document;
  pugi::xml_node declaration = document.append_child(pugi::node_declaration);
  declaration.append_attribute("version").set_value("1.0");
  declaration.append_attribute("encoding").set_value("UTF-8");
  document.append_child(pugi::node_doctype).set_value(DocumentType);
  pugi::xml_node root = document.append_child("kvtml");
  root.append_attribute("version").set_value("2.0");

  pugi::xml_node information = root.append_child("information");
  AddElement(information, "generator", Text(OurName).append(ProgramVersion));
  AddElement(information, "title", deck.description);
  if (!deck.topic.empty()) AddElement(information, "category", deck.topic);

  pugi::xml_node identifiers = root.append_child("identifiers");
  AddIdentifier(identifiers, "0", u"Front");
  AddIdentifier(identifiers, "1", u"Back");

  pugi::xml_node entries = root.append_child("entries");
  int number = 0;
  for (const DeckCard& card : deck.cards) {
    pugi::xml_node entry = entries.append_child("entry");
    entry.append_attribute("id").set_value(number++);
    AddTranslation(entry, "0", card.sides[0]);
    AddTranslation(entry, "1", card.sides[1]);
  }
  // Vocabulary programs show words by lesson, and none that is in no lesson.
  pugi::xml_node lesson = root.append_child("lessons").append_child("container");
  AddElement(lesson, "name", LessonName(deck));
  AddElement(lesson, "inpractice", u"true");
  for (int i = 0; i < number; ++i) lesson.append_child("entry").append_attribute("id").set_value(i);

  std::ostringstream out;
  document.save(out, "  ", pugi::format_default, pugi::encoding_utf8);
  return std::move(out).str();
}
