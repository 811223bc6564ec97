#pragma once

#include "decks/Finding.h"

#include <map>
#include <string>

/// Counts what a file holds and a card does not, by kind.
class LossList {
 public:
  /// One more of a kind, which is a sentence that "3 times" can follow.
  /// @param line  where it is; that of the first one of the kind is reported
  void Add(const std::string& kind, int line);

  /// A finding for each kind.
  void AppendTo(Findings& findings) const;

 private:
  struct Losses {
    int count = 0;
    int line = 0;
  };
  // A file can be made of nothing but kinds; those beyond are counted together.
  static constexpr std::size_t MostKinds = 500;

  std::map<std::string, Losses> m_kinds;
};
