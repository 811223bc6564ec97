#pragma once

#include "base/Text.h"

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// What a finding is about. KindName gives the word that stands for it in reports for machines.
enum class FindingKind {
  Unreadable,        ///< the file cannot be opened, read or written
  Malformed,         ///< the content breaks the rules of its format
  ExtraCards,        ///< more cards than a stack holds
  LongText,          ///< a text that is cut when it is loaded
  Caret,             ///< a caret in a text: the program can read it, but not save it
  MediaWord,         ///< a word of the text that reads as the name of a picture or sound
  MediaName,         ///< a picture or sound that a card cannot name
  MissingMedia,      ///< a picture or sound that is not there
  MediaCase,         ///< one that is there in another letter case
  Topic,             ///< no topic, or one that the settings do not have
  Description,       ///< a description that is cut
  TrailingBlanks,    ///< blanks behind a text
  LineEnds,          ///< line ends of several kinds, or breaks inside a line
  Encoding,          ///< letters that turn out wrong
  ControlCharacter,  ///< characters that nobody sees
  EmptyCard,         ///< a card without anything on it
  IgnoredLine,       ///< a line or row that gives no card
  UnequalSides,      ///< an import list with more fronts than backs, or the other way round
  LostField,         ///< something that the target has no place for
  ChangedText,       ///< a text that does not come back as it was
  Remark,            ///< worth knowing, nothing wrong
};

std::string_view KindName(FindingKind kind);

enum class Severity {
  Remark,   ///< nothing is wrong or lost
  Finding,  ///< something is odd or lost
  Error,    ///< nothing can be done with the file
};

std::string_view SeverityName(Severity severity);

/// One thing that a reader, a writer or a check has to say.
struct Finding {
  FindingKind kind = FindingKind::Remark;
  Severity severity = Severity::Finding;
  int line = 0;         ///< in the file, from 1; 0 when it is about the whole file
  int card = 0;         ///< from 1; 0 when it is about no card
  int side = -1;        ///< Front or Back; -1 when it is about neither
  std::string message;  ///< UTF-8, one line, no full stop
};

/// What there is to say about a file: errors, and of each other kind the first MostOfAKind; those
/// behind them are only counted, for a file of a hundred million mistakes is one as well.
class Findings {
 public:
  static constexpr std::size_t MostOfAKind = 10'000;
  using List = std::vector<Finding>;

  Findings() = default;
  Findings(std::initializer_list<Finding> findings) {
    for (const Finding& finding : findings) push_back(finding);
  }

  void push_back(Finding finding);
  /// Adds those of another list, and what it only counted.
  void Append(const Findings& others);
  template <class Iterator>
  void insert(List::const_iterator, Iterator first, Iterator last) {
    for (; first != last; ++first) push_back(*first);
  }
  void clear() { *this = {}; }

  bool empty() const { return m_list.empty(); }
  std::size_t size() const { return m_list.size(); }
  const Finding& front() const { return m_list.front(); }
  const Finding& back() const { return m_list.back(); }
  const Finding& operator[](std::size_t at) const { return m_list[at]; }
  const Finding& at(std::size_t at) const { return m_list.at(at); }
  List::const_iterator begin() const { return m_list.begin(); }
  List::const_iterator end() const { return m_list.end(); }
  List::iterator begin() { return m_list.begin(); }
  List::iterator end() { return m_list.end(); }

  /// Counts what another list only counted, without its findings.
  void CountOnly(const Findings& others);

  /// How many of a kind were only counted.
  std::size_t CountedOnly(FindingKind kind) const;
  /// How many of all kinds were only counted.
  std::size_t CountedOnly() const;

 private:
  static constexpr std::size_t Kinds = static_cast<std::size_t>(FindingKind::Remark) + 1;

  List m_list;
  std::array<std::size_t, Kinds> m_counts{};
};

/// About the file as a whole, or one of its lines.
Finding Found(FindingKind kind, int line, std::string message);
Finding Failed(FindingKind kind, int line, std::string message);
/// A file without cards, of which nothing can be made.
Finding NoCards();
Finding Remarked(int line, std::string message);
/// About a side of a card.
Finding FoundAt(FindingKind kind, int line, int card, int side, std::string message);

/// Remark for an empty list.
Severity WorstOf(const Findings& findings);

/// In the order of the lines that the findings are about; those about the whole file first.
void SortByLine(Findings& findings);

/// UTF-8 that a terminal can show: control characters become signs of their own, line breaks "⏎".
std::string Printable(TextView text);

/// The same for several lines of UTF-8: all that people are told goes through it last. Line feeds
/// stay, and a byte that is no UTF-8 becomes a character of Windows-1252.
std::string PrintableLines(std::string_view utf8);

/// A text of JSON without control characters: they stand in its strings alone, as "\u009b".
std::string WithoutControls(std::string_view json);

/// The same in quotes, cut to a length that fits into a message.
std::string Quoted(TextView text);
