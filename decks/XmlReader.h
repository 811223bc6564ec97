#pragma once

#include "base/Text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Reads an XML document from its first mark to its last, each byte once, and keeps nothing of what
/// it has passed but the names of the open elements. What a document type declares is skipped: no
/// entity is expanded and no other file is read. Namespaces are not told apart from names.
class XmlReader {
 public:
  enum class Event {
    Start,   ///< an element begins: Name(), ForEachAttribute()
    End,     ///< it ends; one without content as well
    Words,   ///< a piece of an element's text: Piece(); the pieces in a row make up the text
    Done,    ///< the end of a document that is in order
    Broken,  ///< it is not: Problem(), and Line() is where
  };

  /// Elements in elements beyond this are refused, so that the names of the open ones take no more
  /// than a few megabytes.
  static constexpr std::size_t MostLevels = 250'000;

  /// @param utf8  without a mark at the start; stays where it is as long as the reader is used
  explicit XmlReader(std::string_view utf8) : m_text(utf8) {}

  /// After Done and Broken the same again.
  Event Next();

  /// The line on which the last event begins, from 1.
  int Line() const { return m_eventLine; }
  std::string_view Name() const { return m_name; }
  /// UTF-8; valid until the next event.
  std::string_view Piece() const { return m_piece; }
  /// What is wrong, in words.
  const std::string& Problem() const { return m_problem; }

  /// Calls `use` for each attribute of the element that has just begun, in their order.
  void ForEachAttribute(
      const std::function<void(std::string_view name, const std::string& value)>& use) const;
  bool HasAttributes() const { return !m_attributes.empty(); }

  /// References that XML does not know by itself and that therefore stay in the text as they are
  /// written, a lone "&" included.
  struct Unresolved {
    int count = 0;
    int line = 0;       ///< of the first
    std::string first;  ///< as it is written, cut to a length that fits into a message
  };
  const Unresolved& UnresolvedReferences() const { return m_unresolved; }

  /// The line of a document type that declares something of its own; 0 without.
  int DeclarationsLine() const { return m_declarationsLine; }

 private:
  Event Break(std::string problem);
  Event ReadMark();
  Event ReadTag();
  Event ReadEndTag();
  Event ReadTextRun();
  Event ReadCData();
  Event ReadReference();
  bool ReadAttributes();
  bool SkipPast(std::string_view end);
  bool SkipDocumentType();
  Event Finish();

  bool AtEnd() const { return m_at >= m_text.size(); }
  bool Follows(std::string_view words) const { return m_text.substr(m_at).starts_with(words); }
  void Advance(std::size_t count);
  std::string_view TakeName();
  void TakeSpace();
  void MoveTo(std::size_t place) { Advance(place - m_at); }

  std::string_view m_text;
  std::size_t m_at = 0;
  int m_line = 1;
  int m_eventLine = 1;
  std::string_view m_name;
  std::string_view m_piece;
  std::string_view m_attributes;  ///< as written
  std::string m_character;        ///< that a reference stands for
  std::string m_problem;
  std::vector<std::string_view> m_open;
  bool m_isEmptyElement = false;  ///< its end is the next event
  bool m_hadRoot = false;
  int m_declarationsLine = 0;
  Unresolved m_unresolved;
};
