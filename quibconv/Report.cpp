#include "quibconv/Report.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "cards/CardStack.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

std::string_view SideName(int side) { return side == Front ? "front" : "back"; }

std::string FormatWord(const FileReport& report) {
  return report.format ? std::string(FormatName(*report.format)) : "unknown";
}

Json FindingJson(const Finding& finding) {
  Json json = {{"severity", SeverityName(finding.severity)}, {"kind", KindName(finding.kind)}};
  if (finding.line > 0) json["line"] = finding.line;
  if (finding.card > 0) json["card"] = finding.card;
  if (finding.side >= 0) json["side"] = SideName(finding.side);
  json["message"] = finding.message;
  return json;
}

Json FactsJson(const FileReport& report) {
  Json json = {{"file", EncodePath(report.path)}, {"format", FormatWord(report)}};
  if (!report.encoding.empty()) json["encoding"] = report.encoding;
  if (!report.lineEnds.empty()) json["line_ends"] = report.lineEnds;
  json["bytes"] = report.bytes;
  json["topic"] = ToUtf8(report.topic);
  json["description"] = ToUtf8(report.description);
  json["cards"] = report.cards;
  json["sounds"] = report.media.sounds;
  json["pictures"] = report.media.pictures;
  return json;
}

Json FindingsJson(const Findings& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings) list.push_back(FindingJson(finding));
  return list;
}

/// Names of files need not be UTF-8; then a sign stands for each byte that is none.
std::string Dump(const Json& json) {
  return WithoutControls(json.dump(2, ' ', false, Json::error_handler_t::replace)) + "\n";
}

std::string CountWords(std::size_t count, std::string_view one) {
  return fmt::format("{} {}{}", count, one, count == 1 ? "" : "s");
}

}  // namespace

std::string FindingLine(const Finding& finding) {
  std::string line;
  if (finding.card > 0) {
    line = fmt::format("card {}", finding.card);
    if (finding.side >= 0) line += fmt::format(", {}", SideName(finding.side));
    line += ": ";
  }
  return line + finding.message;
}

std::string FindingLines(const Text& path, const Findings& findings, ReportLimits limits) {
  std::string lines;
  std::map<FindingKind, std::size_t> total;
  for (const Finding& finding : findings) ++total[finding.kind];
  for (auto& [kind, count] : total) count += findings.CountedOnly(kind);
  std::map<FindingKind, std::size_t> shown;
  const std::string name = Printable(path);
  for (const Finding& finding : findings) {
    const std::size_t number = ++shown[finding.kind];
    if (limits.perKind > 0 && number > limits.perKind) continue;
    lines += finding.line > 0 ? fmt::format("{}:{}: ", name, finding.line) : name + ": ";
    if (finding.severity == Severity::Error) lines += "error: ";
    if (finding.severity == Severity::Remark) lines += "note: ";
    lines += FindingLine(finding) + "\n";
    const std::size_t more = total[finding.kind] - number;
    if (number == limits.perKind && more > 0) {
      lines += fmt::format("{}: {} more of this kind ({}); --all lists {}\n", name, more,
                           KindName(finding.kind),
                           findings.CountedOnly(finding.kind) > 0
                               ? fmt::format("the first {}", Findings::MostOfAKind)
                               : std::string("them"));
    } else if (number == Findings::MostOfAKind && more > 0) {
      lines += fmt::format("{}: {} more of this kind ({})\n", name, more, KindName(finding.kind));
    }
  }
  return lines;
}

void CheckSummary::Add(const FileReport& report) {
  const auto isFinding = [](const Finding& finding) {
    return finding.severity == Severity::Finding;
  };
  findings += static_cast<std::size_t>(
      std::count_if(report.findings.begin(), report.findings.end(), isFinding));
  findings += report.findings.CountedOnly();
  switch (WorstOf(report.findings)) {
    case Severity::Remark:
      ++clean;
      break;
    case Severity::Finding:
      ++withFindings;
      break;
    case Severity::Error:
      ++unusable;
      break;
  }
}

std::string CheckSummary::Words() const {
  return fmt::format("{} checked: {} clean, {} with findings ({}), {} unusable",
                     CountWords(clean + withFindings + unusable, "file"), clean, withFindings,
                     findings, unusable);
}

int CheckSummary::ExitCode() const {
  if (unusable > 0) return 2;
  return withFindings > 0 ? 1 : 0;
}

std::string InfoText(const FileReport& report) {
  std::string text = Printable(report.path) + "\n";
  const auto add = [&](std::string_view name, const std::string& value) {
    text += fmt::format("  {:<12} {}\n", std::string(name) + ":", value);
  };
  add("format", FormatWord(report));
  add("topic", Printable(report.topic));
  add("description", Printable(report.description));
  add("cards", std::to_string(report.cards));
  add("media", CountWords(report.media.pictures, "picture") + ", " +
                   CountWords(report.media.sounds, "sound"));
  add("encoding", report.encoding);
  add("line ends", report.lineEnds);
  add("size", CountWords(report.bytes, "byte"));
  return text;
}

std::string CheckJson(const std::vector<FileReport>& reports) {
  Json files = Json::array();
  CheckSummary summary;
  for (const FileReport& report : reports) {
    Json file = FactsJson(report);
    file["findings"] = FindingsJson(report.findings);
    if (const std::size_t more = report.findings.CountedOnly(); more > 0) {
      file["more_findings"] = more;
    }
    files.push_back(std::move(file));
    summary.Add(report);
  }
  return Dump({{"files", std::move(files)},
               {"summary",
                {{"files", reports.size()},
                 {"clean", summary.clean},
                 {"with_findings", summary.withFindings},
                 {"unusable", summary.unusable},
                 {"findings", summary.findings}}}});
}

std::string InfoJson(const std::vector<FileReport>& reports) {
  Json files = Json::array();
  for (const FileReport& report : reports) {
    Json file = FactsJson(report);
    if (!report.findings.empty()) file["findings"] = FindingsJson(report.findings);
    files.push_back(std::move(file));
  }
  return Dump({{"files", std::move(files)}});
}
