#include "decks/KvtmlSurvey.h"

#include "decks/XmlWalker.h"

#include <fmt/format.h>
#include <utility>

namespace {

// As many as --columns can count; a file of nothing but languages must not take many times its
// length.
constexpr std::size_t MostLanguages = 999;

class Surveyor {
 public:
  Surveyor(std::string_view utf8, Findings& findings) : m_walk(utf8), m_findings(findings) {}

  /// @return false when the document is not in order, or no vocabulary file
  bool Run(KvtmlSurvey& survey) {
    if (m_walk.xml.Next() == XmlReader::Event::Start && !CheckRoot()) return false;
    m_walk.ForEach([&](std::string_view section) {
      m_walk.ForEach([&](std::string_view part) {
        if (section == "entries" && part == "entry") ++survey.entries;
        if (section == "identifiers" && part == "identifier") {
          TakeLanguage(survey);
        } else {
          m_walk.SkipInside();
        }
      });
    });
    if (m_walk.xml.Next() == XmlReader::Event::Done) return true;
    return Fail(fmt::format("not well-formed XML: {}", m_walk.xml.Problem()));
  }

 private:
  bool Fail(std::string message) {
    m_findings.push_back(Failed(FindingKind::Malformed, m_walk.xml.Line(), std::move(message)));
    return false;
  }

  bool CheckRoot() {
    if (m_walk.xml.Name() != "kvtml") {
      return Fail("XML, but not of a vocabulary file: it has no <kvtml>");
    }
    const std::string version = m_walk.Attribute("version");
    if (version.starts_with('2')) return true;
    return Fail(fmt::format("a vocabulary file of version {}; only version 2 is read",
                            version.empty() ? "1" : ShownName(version)));
  }

  void TakeLanguage(KvtmlSurvey& survey) {
    const std::string id = m_walk.Attribute("id");
    std::string shown;
    m_walk.ForEach([&](std::string_view part) {
      if (part == "name" && shown.empty()) {
        shown = Printable(CutText(m_walk.ReadText([](std::string_view) {}), 40));
      } else {
        m_walk.SkipInside();
      }
    });
    if (survey.ids.size() >= MostLanguages) return;
    survey.ids.push_back(id);
    survey.names.try_emplace(id, shown.empty() ? ShownName(id) : shown);
  }

  XmlWalker m_walk;
  Findings& m_findings;
};

}  // namespace

bool SurveyKvtml(std::string_view utf8, KvtmlSurvey& survey, Findings& findings) {
  return Surveyor(utf8, findings).Run(survey);
}
