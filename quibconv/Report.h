#pragma once

#include "decks/Finding.h"
#include "quibconv/Check.h"

#include <string>
#include <vector>

/// How many findings of one kind are shown of a file; 0 shows all.
struct ReportLimits {
  std::size_t perKind = 10;
};

/// "words.QBC:5: card 2, front: a caret in ...": a line for each finding, which editors can follow.
/// Behind the last one that is shown of a kind, a line says how many there are more.
std::string FindingLines(const Text& path, const Findings& findings, ReportLimits limits);

/// One line of a finding, without its file.
std::string FindingLine(const Finding& finding);

/// How many files had what.
struct CheckSummary {
  std::size_t clean = 0;
  std::size_t withFindings = 0;
  std::size_t unusable = 0;
  std::size_t findings = 0;

  void Add(const FileReport& report);
  /// "3 files checked: 1 clean, 1 with 4 findings, 1 unusable"
  std::string Words() const;
  /// 0 clean, 1 findings, 2 something unusable.
  int ExitCode() const;
};

/// Blocks of "topic: ..." lines, one block a file.
std::string InfoText(const FileReport& report);

/// The same for machines: {"files": [...], "summary": {...}}.
std::string CheckJson(const std::vector<FileReport>& reports);
std::string InfoJson(const std::vector<FileReport>& reports);
