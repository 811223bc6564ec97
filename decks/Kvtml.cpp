#include "decks/Kvtml.h"

#include "base/CodePage.h"
#include "decks/KvtmlSurvey.h"
#include "decks/KvtmlWriter.h"
#include "decks/LossList.h"
#include "decks/TextEncoding.h"
#include "decks/XmlEncoding.h"
#include "decks/XmlWalker.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

namespace {

/// How many entries a file of a length may have: more than the empty ones among them would be cards
/// that take many times the memory of the file. A small file may be anything.
std::size_t MostEntries(std::size_t length) {
  constexpr std::size_t Free = std::size_t{16} << 20;
  return (Free + 4 * length) / sizeof(DeckCard);
}

/// A few texts in a row for a message.
class NameList {
 public:
  void Add(TextView name) {
    if (m_count++ < Most) m_words.append(m_words.empty() ? "" : ", ").append(Quoted(name));
  }
  int Count() const { return m_count; }
  std::string Words() const { return m_count > Most ? m_words + " and more" : m_words; }

 private:
  static constexpr int Most = 10;
  int m_count = 0;
  std::string m_words;
};

class Reader {
 public:
  Reader(std::string_view utf8, const KvtmlSurvey& survey, Deck& deck, Findings& findings)
      : m_walk(utf8), m_survey(survey), m_deck(deck), m_findings(findings) {}

  /// @return false when a text is too long; then the last finding is an error
  bool Read(TextColumns wanted) {
    PlaceLanguages(wanted);
    (void)m_walk.xml.Next();
    const int line = m_walk.xml.Line();
    LoseAttributes("kvtml", {"version"});
    if (m_walk.ForEach([&](std::string_view section) { ReadSection(section); })) {
      LoseStray("kvtml", line);
    }
    ListLosses();
    if (m_tooLongLine == 0) return true;
    m_findings.push_back(Failed(
        FindingKind::LongText, m_tooLongLine,
        fmt::format("a text of more than {} characters is of no card", XmlWalker::LongestText)));
    return false;
  }

 private:
  // -- what has no place

  void Lose(const std::string& what, int line) {
    m_losses.Add(what + " has no place on a card; left out", line);
  }
  void LoseStray(std::string_view element, int line) {
    Lose(fmt::format("the text beside the elements of <{}>", ShownName(element)), line);
  }
  /// Passes over the element that has begun; one without content is no loss.
  void LoseElement(const std::string& what) {
    const int line = m_walk.xml.Line();
    if (m_walk.Skip()) Lose(what, line);
  }
  void LoseAttributes(std::string_view element, std::initializer_list<std::string_view> known) {
    if (!m_walk.xml.HasAttributes()) return;
    m_walk.xml.ForEachAttribute([&](std::string_view name, const std::string&) {
      if (std::find(known.begin(), known.end(), name) != known.end()) return;
      Lose(fmt::format("the attribute {} of <{}>", Quoted(FromUtf8(ShownName(name))),
                       ShownName(element)),
           m_walk.xml.Line());
    });
  }

  /// Calls `child` for each element in the one that has begun.
  template <typename Child>
  void ReadParts(std::string_view element, std::initializer_list<std::string_view> attributes,
                 Child child) {
    const int line = m_walk.xml.Line();
    LoseAttributes(element, attributes);
    if (m_walk.ForEach(child)) LoseStray(element, line);
  }

  /// The text of an element that holds nothing else.
  Text ReadText(std::string_view element) {
    LoseAttributes(element, {});
    const int line = m_walk.xml.Line();
    Text text = m_walk.ReadText([&](std::string_view mark) {
      m_losses.Add(fmt::format("of the mark <{}> in <{}> only the text stays; the rest is left out",
                               ShownName(mark), ShownName(element)),
                   m_walk.xml.Line());
    });
    if (text.size() > XmlWalker::LongestText && m_tooLongLine == 0) m_tooLongLine = line;
    return text;
  }
  /// The same into a place that takes one text: the first with anything in it.
  void TakeText(std::string_view element, Text& place, bool trim) {
    const int line = m_walk.xml.Line();
    Text text = ReadText(element);
    if (trim) text = TrimBlanks(text);
    if (!HasInk(place)) {
      if (!text.empty()) place = std::move(text);
    } else if (HasInk(text)) {
      Lose(fmt::format("a further <{}>", ShownName(element)), line);
    }
  }

  // -- the sections

  void ReadSection(std::string_view section) {
    if (section == "information") {
      ReadParts(section, {}, [&](std::string_view item) { ReadInformation(item); });
    } else if (section == "identifiers") {
      ReadParts(section, {}, [&](std::string_view part) {
        if (part == "identifier") {
          ReadIdentifier();
        } else {
          LoseElement(fmt::format("<{}>", ShownName(part)));
        }
      });
    } else if (section == "entries") {
      ReadParts(section, {}, [&](std::string_view part) {
        if (part == "entry") {
          ReadEntry();
        } else {
          LoseElement(fmt::format("<{}>", ShownName(part)));
        }
      });
    } else if (section == "lessons") {
      ReadLessons();
    } else {
      LoseElement(fmt::format("<{}>", ShownName(section)));
    }
  }

  void ReadInformation(std::string_view item) {
    const int line = m_walk.xml.Line();
    if (item == "title") {
      TakeText(item, m_deck.description, true);
    } else if (item == "category") {
      TakeText(item, m_deck.topic, true);
    } else if (item == "generator" || item == "date") {
      const Text text = ReadText(item);
      if (HasInk(text) && !text.starts_with(OurProgram) && m_programLine == 0) m_programLine = line;
    } else {
      LoseElement(fmt::format("the {}", ShownName(item)));
    }
  }

  void ReadIdentifier() {
    int names = 0;
    const int line = m_walk.xml.Line();
    ReadParts("identifier", {"id"}, [&](std::string_view part) {
      if (part == "name" && names > 0) {
        LoseElement("a further <name>");
      } else if (part == "name" || part == "locale") {
        const Text text = ReadText(part);
        const bool ours =
            std::find(OurLanguages.begin(), OurLanguages.end(), text) != OurLanguages.end();
        if (part == "name" && HasInk(text)) ++names;
        if (HasInk(text) && !ours && m_languageNames.Count() == 0) m_languagesLine = line;
        if (HasInk(text) && !ours) m_languageNames.Add(text);
      } else {
        LoseElement(fmt::format("<{}>", ShownName(part)));
      }
    });
  }

  void PlaceLanguages(TextColumns wanted) {
    m_ids = m_survey.ids;
    // A file without languages still numbers its words.
    for (int number = 0; m_ids.size() < 2; ++number) {
      const std::string id = std::to_string(number);
      if (std::find(m_ids.begin(), m_ids.end(), id) == m_ids.end()) m_ids.push_back(id);
    }
    std::vector<TableColumn> columns(m_ids.size());
    PlaceTexts(columns, wanted);
    for (std::size_t i = 0; i < std::min(columns.size(), m_ids.size()); ++i) {
      if (columns[i].role == ColumnRole::FrontText) m_sideIds[0] = m_ids[i];
      if (columns[i].role == ColumnRole::BackText) m_sideIds[1] = m_ids[i];
    }
  }

  void ReadEntry() {
    DeckCard& card = m_deck.cards.emplace_back();
    card.line = m_walk.xml.Line();
    ReadParts("entry", {"id"}, [&](std::string_view part) {
      if (part == "translation") {
        ReadTranslation(card);
      } else {
        LoseElement(fmt::format("<{}>", ShownName(part)));
      }
    });
  }

  void ReadTranslation(DeckCard& card) {
    const std::string id = m_walk.Attribute("id");
    for (std::size_t side = 0; side < card.sides.size(); ++side) {
      if (m_sideIds[side] != id) continue;
      ReadParts("translation", {"id"},
                [&](std::string_view part) { ReadPart(part, card.sides[side]); });
      return;
    }
    const int line = m_walk.xml.Line();
    LoseAttributes("translation", {"id"});
    if (m_walk.SkipInside()) Lose(fmt::format("the language “{}”", NameOfId(id)), line);
  }

  std::string NameOfId(const std::string& id) const {
    const auto known = m_survey.names.find(id);
    return known == m_survey.names.end() ? ShownName(id) : known->second;
  }

  void ReadPart(std::string_view part, DeckSide& side) {
    if (part == "text") {
      TakeText(part, side.text, false);
    } else if (part == "sound") {
      TakeText(part, side.sound, true);
    } else if (part == "image") {
      TakeText(part, side.picture, true);
    } else {
      LoseElement(fmt::format("<{}>", ShownName(part)));
    }
  }

  void ReadLessons() {
    if (m_lessonsLine == 0) m_lessonsLine = m_walk.xml.Line();
    ReadParts("lessons", {}, [&](std::string_view part) {
      if (part == "container") {
        ReadLesson();
      } else {
        LoseElement(fmt::format("<{}>", ShownName(part)));
      }
    });
  }

  void ReadLesson() {
    Text name;
    ReadParts("container", {}, [&](std::string_view part) {
      if (part == "name") {
        TakeText(part, name, false);
      } else if (part == "inpractice") {
        if (ReadText(part) == u"false") m_hasLessonAside = true;
      } else if (part == "entry") {
        ++m_lessonEntries;
        LoseAttributes("entry", {"id"});
        if (m_walk.SkipInside()) Lose("<entry> of a lesson", m_walk.xml.Line());
      } else {
        LoseElement(fmt::format("<{}>", ShownName(part)));
      }
    });
    m_lessonNames.Add(name);
    m_lastLesson = std::move(name);
  }

  /// A single lesson that is called like the file and has all its cards says nothing of its own.
  bool LessonsSayNothing() const {
    return m_lessonNames.Count() == 0 ||
           (m_lessonNames.Count() == 1 && m_lastLesson == OurLesson(m_deck) &&
            m_lessonEntries == m_deck.cards.size() && !m_hasLessonAside);
  }

  void ListLosses() {
    if (m_programLine != 0) {
      m_findings.push_back(
          Remarked(m_programLine, "which program made the file, and when, stays behind"));
    }
    if (m_languageNames.Count() > 0) {
      m_findings.push_back(Remarked(
          m_languagesLine,
          fmt::format("what the languages are called stays behind: {}", m_languageNames.Words())));
    }
    m_losses.AppendTo(m_findings);
    if (!LessonsSayNothing()) {
      m_findings.push_back(
          Found(FindingKind::LostField, m_lessonsLine,
                fmt::format("the lessons become one list: {}", m_lessonNames.Words())));
    }
    const XmlReader::Unresolved& unresolved = m_walk.xml.UnresolvedReferences();
    if (unresolved.count > 0) {
      m_findings.push_back(Found(
          FindingKind::Malformed, unresolved.line,
          fmt::format(
              "{} stands for no character that XML knows; it stays as it is{}", unresolved.first,
              unresolved.count == 1 ? std::string()
                                    : fmt::format(", and {} more like it", unresolved.count - 1))));
    }
    if (m_walk.xml.DeclarationsLine() != 0) {
      m_findings.push_back(Found(FindingKind::LostField, m_walk.xml.DeclarationsLine(),
                                 "what the document type declares is not read"));
    }
  }

  XmlWalker m_walk;
  const KvtmlSurvey& m_survey;
  Deck& m_deck;
  Findings& m_findings;
  LossList m_losses;
  std::vector<std::string> m_ids;
  std::array<std::optional<std::string>, 2> m_sideIds;
  NameList m_languageNames;
  int m_languagesLine = 0;
  int m_tooLongLine = 0;  ///< of a text
  int m_programLine = 0;  ///< that says who made the file
  NameList m_lessonNames;
  Text m_lastLesson;
  std::size_t m_lessonEntries = 0;
  bool m_hasLessonAside = false;  ///< that is not to be practised
  int m_lessonsLine = 0;
};

}  // namespace

bool ReadKvtml(std::string_view bytes, const std::string& encoding, TextColumns wanted, Deck& deck,
               std::string& usedEncoding, Findings& findings) {
  std::string storage;
  std::string_view utf8;
  const std::string said = encoding.empty() ? XmlEncoding(bytes, findings) : encoding;
  if (!DecodeToUtf8(bytes, said, storage, utf8, usedEncoding, findings)) return false;
  KvtmlSurvey survey;
  if (!SurveyKvtml(utf8, survey, findings)) return false;
  if (survey.entries > MostEntries(utf8.size())) {
    findings.push_back(Failed(FindingKind::Unreadable, 0,
                              fmt::format("Out of memory: {} entries", survey.entries)));
    return false;
  }
  return Reader(utf8, survey, deck, findings).Read(wanted);
}
