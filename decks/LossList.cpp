#include "decks/LossList.h"

#include <fmt/format.h>

void LossList::Add(const std::string& kind, int line) {
  const bool isKnown = m_kinds.size() < MostKinds || m_kinds.contains(kind);
  Losses& losses = m_kinds[isKnown ? kind : "more that has no place on a card; left out"];
  if (losses.count++ == 0) losses.line = line;
}

void LossList::AppendTo(Findings& findings) const {
  for (const auto& [kind, losses] : m_kinds) {
    findings.push_back(
        Found(FindingKind::LostField, losses.line,
              losses.count == 1 ? kind : fmt::format("{} {} times", kind, losses.count)));
  }
}
