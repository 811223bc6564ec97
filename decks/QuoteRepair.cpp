#include "decks/QuoteRepair.h"

#include <algorithm>

namespace {

// So far a quote that ends a field is looked for; without an end to it, a line full of quotes would
// take its length squared.
constexpr std::size_t LongestLook = 1000;

bool IsBreak(char unit) { return unit == '\r' || unit == '\n'; }

class Repair {
 public:
  Repair(std::string_view text, char separator, int firstLine)
      : m_text(text), m_separator(separator), m_line(firstLine) {}

  RepairedQuotes Run() {
    m_repaired.text.reserve(m_text.size());
    for (m_at = 0; m_at < m_text.size(); ++m_at) {
      Take(m_text[m_at]);
      if (EndsLine(m_at)) ++m_line;
    }
    if (m_place == Place::Behind) m_repaired.text += '"';
    if (m_place == Place::Quoted) m_repaired.unclosedLine = m_openLine;
    return std::move(m_repaired);
  }

 private:
  enum class Place { Start, Plain, Quoted, Behind };  ///< of a field

  bool EndsLine(std::size_t at) const {
    const bool first = m_text[at] == '\r' && at + 1 < m_text.size() && m_text[at + 1] == '\n';
    return IsBreak(m_text[at]) && !first;
  }
  bool EndsField(std::size_t at) const {
    return at >= m_text.size() || m_text[at] == m_separator || IsBreak(m_text[at]);
  }

  void Take(char unit) {
    if (m_place == Place::Quoted) {
      if (unit == '"') return TakeQuote();
    } else if (EndsField(m_at)) {
      if (m_place == Place::Behind) m_repaired.text += '"';
      m_place = Place::Start;
    } else if (m_place == Place::Start) {
      m_place = unit == '"' ? Place::Quoted : Place::Plain;
      m_openLine = m_line;
    } else if (m_place == Place::Behind && unit == '"') {
      m_repaired.text += '"';
    }
    m_repaired.text += unit;
  }

  /// A quote in a quoted field.
  void TakeQuote() {
    if (m_at + 1 < m_text.size() && m_text[m_at + 1] == '"') {
      m_repaired.text.append("\"\"");
      ++m_at;
    } else if (EndsField(m_at + 1)) {
      m_repaired.text += '"';
      m_place = Place::Plain;
    } else if (AnotherEndsTheField()) {
      m_repaired.text.append("\"\"");
    } else {
      m_place = Place::Behind;
    }
  }

  bool AnotherEndsTheField() const {
    const std::size_t end = std::min(m_text.size(), m_at + LongestLook);
    for (std::size_t at = m_at + 1; at < end && !IsBreak(m_text[at]); ++at) {
      if (m_text[at] != '"') continue;
      if (m_text[at - 1] == m_separator) return false;  // it opens the next field
      if (EndsField(at + 1)) return true;
    }
    return false;
  }

  std::string_view m_text;
  char m_separator;
  std::size_t m_at = 0;
  int m_line;
  int m_openLine = 0;
  Place m_place = Place::Start;
  RepairedQuotes m_repaired;
};

}  // namespace

RepairedQuotes RepairQuotes(std::string_view utf8, char separator, int firstLine) {
  return Repair(utf8, separator, firstLine).Run();
}
