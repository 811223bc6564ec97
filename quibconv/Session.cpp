#include "quibconv/Session.h"

#include "base/CodePage.h"
#include "base/Paths.h"
#include "base/SystemFile.h"
#include "decks/Conversion.h"
#include "quibconv/Check.h"
#include "quibconv/Report.h"
#include "quibconv/StackFolders.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace {

/// Everything for people goes out here, so that no control character of a file or of an argument
/// reaches a terminal.
void Say(const TextOutput& output, std::string_view words) { output(PrintableLines(words)); }

ReportLimits LimitsOf(const Request& request) { return {.perKind = request.all ? 0U : 10U}; }

/// The files that the arguments name, with those in folders; a folder that cannot be listed becomes
/// a report of its own.
std::vector<Text> FilesOf(const Request& request, std::vector<FileReport>& troubles) {
  std::vector<Text> paths;
  for (const std::string& argument : request.files) {
    const Text path = DecodePath(argument);
    if (!IsFolder(argument)) {
      paths.push_back(path);
      continue;
    }
    std::vector<FolderTrouble> folders;
    const std::vector<Text> found = StacksBelow(path, folders);
    paths.insert(paths.end(), found.begin(), found.end());
    for (const FolderTrouble& folder : folders) {
      FileReport report;
      report.path = folder.path;
      report.findings.push_back(
          Failed(FindingKind::Unreadable, 0, ToUtf8(ErrorText(folder.status))));
      troubles.push_back(std::move(report));
    }
  }
  return paths;
}

/// Errors go to the error output, everything else to the output.
void Tell(const Text& path, const Findings& findings, const Request& request,
          Surroundings& around) {
  Findings errors;
  Findings others;
  for (const Finding& finding : findings) {
    (finding.severity == Severity::Error ? errors : others).push_back(finding);
  }
  others.CountOnly(findings);
  Say(around.out, FindingLines(path, others, LimitsOf(request)));
  Say(around.error, FindingLines(path, errors, LimitsOf(request)));
}

bool LoadTopics(const Request& request, Surroundings& around, TopicList& topics) {
  const Text path = DecodePath(request.settings);
  std::string bytes;
  const FileStatus status = around.files.Read(path, bytes);
  if (status != FileStatus::Ok) {
    Say(around.error, fmt::format("{}: error: {}\n", Printable(path), ToUtf8(ErrorText(status))));
    return false;
  }
  LoadTopicList(topics, ProfileFile(around.files, path));
  return true;
}

int RunCheck(const Request& request, Surroundings& around) {
  TopicList topics;
  CheckOptions options{nullptr, request.options.read, request.options.from};
  if (!request.settings.empty()) {
    if (!LoadTopics(request, around, topics)) return Unusable;
    options.topics = &topics;
  }
  MediaFolders folders(around.files);
  std::vector<FileReport> reports;
  const std::vector<Text> paths = FilesOf(request, reports);
  CheckSummary summary;
  const auto take = [&](const FileReport& report) {
    summary.Add(report);
    if (!request.json) Tell(report.path, report.findings, request, around);
  };
  for (const FileReport& trouble : reports) take(trouble);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    around.progress(i, paths.size());
    FileReport report = CheckFile(around.files, folders, paths[i], options);
    take(report);
    if (request.json) reports.push_back(std::move(report));
  }
  around.progress(paths.size(), paths.size());
  if (request.json) {
    around.out(CheckJson(reports));
  } else if (!request.quiet) {
    Say(around.out, summary.Words() + "\n");
  }
  return summary.ExitCode();
}

int RunInfo(const Request& request, Surroundings& around) {
  const CheckOptions options{nullptr, request.options.read, request.options.from};
  std::vector<FileReport> reports;
  const std::vector<Text> paths = FilesOf(request, reports);
  for (const Text& path : paths) {
    Deck deck;
    reports.push_back(DescribeFile(around.files, path, options, deck));
  }
  int status = AllIsWell;
  for (const FileReport& report : reports) {
    const bool usable = WorstOf(report.findings) != Severity::Error;
    if (!usable) status = Unusable;
    if (request.json) continue;
    if (usable) {
      Say(around.out, InfoText(report));
    } else {
      Tell(report.path, report.findings, request, around);
    }
  }
  if (request.json) around.out(InfoJson(reports));
  return status;
}

/// Reads a file, or the standard input.
bool ReadInput(const std::string& name, Surroundings& around, std::string& bytes) {
  const Text path = DecodePath(name);
  if (name == StandardStream) {
    if (around.input(bytes)) return true;
    Say(around.error, "-: error: the standard input cannot be read\n");
    return false;
  }
  const FileStatus status = around.files.Read(path, bytes);
  if (status == FileStatus::Ok) return true;
  Say(around.error, fmt::format("{}: error: {}\n", Printable(path), ToUtf8(ErrorText(status))));
  return false;
}

int RunShow(const Request& request, Surroundings& around) {
  int status = AllIsWell;
  for (const std::string& name : request.files) {
    const Text path = DecodePath(name);
    std::string bytes;
    if (!ReadInput(name, around, bytes)) {
      status = Unusable;
      continue;
    }
    const auto format =
        request.options.from ? request.options.from : FormatForReading(BaseName(path), bytes);
    Deck deck;
    Findings findings;
    std::string encoding;
    if (!format) {
      findings.push_back(
          Failed(FindingKind::Unreadable, 0, "the name says no format; --from does"));
    } else if (ReadDeck(*format, bytes, BaseName(path), request.options.read, deck, encoding,
                        findings) &&
               deck.cards.empty()) {
      findings.push_back(NoCards());
    }
    Say(around.error, FindingLines(path, findings, LimitsOf(request)));
    if (WorstOf(findings) == Severity::Error) {
      status = Unusable;
      continue;
    }
    if (request.files.size() > 1) Say(around.out, Printable(path) + "\n");
    ShowCardTable(deck, around.terminalWidth, around.characterWidth,
                  [&](std::string_view row) { Say(around.out, row); });
  }
  return status;
}

/// @return false, with words, for what cannot go to the standard output
bool FitsOutput(const Request& request, const Conversion& conversion, Surroundings& around) {
  if (request.output != StandardStream) return true;
  if (!request.options.copyMedia && conversion.outputs.size() == 1) return true;
  Say(around.error, "-: error: several files cannot go to the standard output\n");
  return false;
}

int RunConvert(const Request& request, Surroundings& around) {
  const std::string& input = request.files.front();
  std::string bytes;
  if (!ReadInput(input, around, bytes)) return Unusable;
  const Text inPath = DecodePath(input);
  Conversion conversion;
  const bool planned = PlanConversion(around.files, std::move(bytes), inPath,
                                      DecodePath(request.output), request.options, conversion);
  SortByLine(conversion.findings);
  Say(around.error, FindingLines(inPath, conversion.findings, LimitsOf(request)));
  if (!planned) {
    if (WorstOf(conversion.findings) == Severity::Error) return Unusable;
    Say(around.error,
        fmt::format("{}: error: nothing is written, because something would be lost (--strict)\n",
                    Printable(inPath)));
    return SomethingFound;
  }
  if (!FitsOutput(request, conversion, around)) return Unusable;
  if (request.output == StandardStream) {
    around.out(conversion.outputs.front().bytes);
    return AllIsWell;
  }
  conversion.findings.clear();
  const bool written = WriteConversion(around.files, conversion);
  Say(around.error, FindingLines(inPath, conversion.findings, LimitsOf(request)));
  if (!written) return Unusable;
  if (!request.quiet) {
    for (const OutputFile& output : conversion.outputs) {
      Say(around.out, fmt::format("{}: {} card{}\n", Printable(output.path), output.cards,
                                  output.cards == 1 ? "" : "s"));
    }
    if (request.options.copyMedia) {
      Say(around.out, fmt::format("{} copied\n", conversion.mediaCopied == 1
                                                     ? "1 picture or sound"
                                                     : fmt::format("{} pictures and sounds",
                                                                   conversion.mediaCopied)));
    }
  }
  return conversion.mediaLeft == 0 ? AllIsWell : SomethingFound;
}

}  // namespace

int RunRequest(const Request& request, Surroundings& surroundings) {
  switch (request.command) {
    case Command::Check:
      return RunCheck(request, surroundings);
    case Command::Info:
      return RunInfo(request, surroundings);
    case Command::Show:
      return RunShow(request, surroundings);
    case Command::Convert:
      break;
  }
  return RunConvert(request, surroundings);
}
