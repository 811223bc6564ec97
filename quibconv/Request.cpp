#include "quibconv/Request.h"

#include "base/CodePage.h"
#include "base/Version.h"
#include "decks/TextEncoding.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <sstream>

namespace {

constexpr const char* ProgramWords =
    "Checks, shows and converts the card stacks of Quib!Cards.\n"
    "Formats: qbc (stacks), qbs (question and answer lists, read only), tsv and csv (tables of\n"
    "spreadsheets), kvtml (vocabulary files, version 2), anki (Anki's text export, .txt).";
constexpr const char* ProgramFooter =
    "Examples:\n"
    "  quibconv check ~/cards                    every stack in a folder, with line numbers\n"
    "  quibconv convert words.csv words.QBC      a table from a spreadsheet becomes a stack\n"
    "  quibconv convert animals.QBC animals.txt  a stack becomes a text file for Anki\n"
    "\n"
    "quibconv COMMAND --help tells more about a command. Exit status: 0 all is well, 1 something\n"
    "was found, nothing was written because of --strict, or media were left behind, 2 a file, the\n"
    "command or the standard output is unusable, or memory ran out.";

constexpr const char* CheckWords =
    "Reads each file as Quib!Cards would and reports what is odd about it, with line numbers: "
    "files\n"
    "that it refuses, cards behind the 300th, texts of more than 256 characters, carets that it\n"
    "could not save again, words that read as names of pictures or sounds, missing media and "
    "letter\n"
    "case that differs, topics that are not configured, blanks behind texts, mixed line ends,\n"
    "encodings. Files of other programs are checked for what a stack could not hold. Folders are\n"
    "searched for .QBC and .QBS files.";
constexpr const char* CheckFooter =
    "Examples:\n"
    "  quibconv check animals.QBC\n"
    "  quibconv check --settings ~/.config/quibcards/QUIBCRDS.INI ~/cards\n"
    "  quibconv check --json ~/cards | jq '.summary'\n"
    "\n"
    "Exit status: 0 clean, 1 findings, 2 some file is unusable.";

constexpr const char* InfoWords =
    "Tells topic, description, number of cards and media, encoding, line ends and size of each "
    "file.";
constexpr const char* InfoFooter =
    "Examples:\n"
    "  quibconv info animals.QBC\n"
    "  quibconv info --json ~/cards";

constexpr const char* ShowWords =
    "Shows the cards as a table: number, front, back; pictures and sounds in brackets. On a "
    "terminal\n"
    "texts are cut to its width.";
constexpr const char* ShowFooter =
    "Examples:\n"
    "  quibconv show animals.QBC\n"
    "  quibconv show animals.QBC | less\n"
    "  quibconv show --from csv - < words.csv";

constexpr const char* ConvertWords =
    "Writes the cards of IN to OUT. The formats come from the names (.QBC, .QBS, .tsv, .tab, "
    ".csv,\n"
    ".kvtml, .txt), unless --from and --to say them; \"-\" stands for the standard input or "
    "output.\n"
    "What OUT cannot hold is listed on the standard error output, and nothing is lost without "
    "being\n"
    "listed. OUT, all parts of it with --split, is written as a whole or not at all, and never "
    "over an\n"
    "existing file without --force.";
constexpr const char* ConvertFooter =
    "Examples:\n"
    "  quibconv convert words.csv words.QBC --topic Spanish --description \"Unit 3\"\n"
    "  quibconv convert --encoding windows-1252 --separator semicolon old.csv old.QBC\n"
    "  quibconv convert --split vocabulary.kvtml french.QBC\n"
    "  quibconv convert --columns 3,2 deck.txt deck.QBC      back and front are fields 2 and 3\n"
    "  quibconv convert --media copy animals.QBC usb/animals.kvtml\n"
    "  quibconv convert --encoding utf-8 broken.QBC repaired.QBC\n"
    "\n"
    "Exit status: 0 written; 1 nothing written because of --strict, or written but for some of "
    "the\n"
    "media; 2 nothing written, or the standard output failed.";

constexpr const char* FormatList = "qbc, qbs, tsv, csv, kvtml or anki";

std::string CheckedFormat(const std::string& name) {
  return FormatOfName(name) ? std::string()
                            : fmt::format("\"{}\" is no format; there are {}", name, FormatList);
}

std::string CheckedEncoding(const std::string& name) {
  return IsKnownEncoding(name) ? std::string() : fmt::format("no encoding is called \"{}\"", name);
}

struct NamedCharacter {
  std::string_view name;
  char character;
};
constexpr std::array<NamedCharacter, 5> SeparatorNames = {
    {{"tab", '\t'}, {"comma", ','}, {"semicolon", ';'}, {"pipe", '|'}, {"space", ' '}}};

/// 0 when the word says no separator.
char SeparatorOf(const std::string& word) {
  const auto* const named =
      std::find_if(SeparatorNames.begin(), SeparatorNames.end(),
                   [&](const NamedCharacter& known) { return known.name == word; });
  if (named != SeparatorNames.end()) return named->character;
  const bool usable = word.size() == 1 && word[0] > ' ' && word[0] < 0x7F && word[0] != '"';
  return usable ? word[0] : '\0';
}

std::string CheckedSeparator(const std::string& word) {
  return SeparatorOf(word) != 0
             ? std::string()
             : fmt::format(
                   "\"{}\" is no separator; say tab, comma, semicolon, pipe, space or a sign",
                   word);
}

/// {0, 0} when the word is no pair of different numbers.
TextColumns ColumnsOf(const std::string& word) {
  const std::size_t comma = word.find(',');
  const auto number = [](const std::string& digits) {
    const bool usable = !digits.empty() && digits.size() <= 3 &&
                        digits.find_first_not_of("0123456789") == std::string::npos;
    return usable ? std::stoi(digits) : 0;
  };
  if (comma == std::string::npos) return {};
  const TextColumns columns{number(word.substr(0, comma)), number(word.substr(comma + 1))};
  if (columns.front == 0 || columns.back == 0 || columns.front == columns.back) return {};
  return columns;
}

std::string CheckedColumns(const std::string& word) {
  return ColumnsOf(word).front > 0
             ? std::string()
             : fmt::format("\"{}\" is no pair of columns; say for example 2,3", word);
}

/// The words of the command line, before they become a request.
struct Words {
  std::vector<std::string> files;
  std::string in;
  std::string out;
  std::string settings;
  std::string from;
  std::string to;
  std::string encoding;
  std::string toEncoding;
  std::string separator;
  std::string toSeparator;
  std::string columns;
  std::string topic;
  std::string description;
  std::string media;
  bool json = false;
  bool all = false;
  bool quiet = false;
  bool header = false;
  bool noHeader = false;
  bool toHeader = false;
  bool swap = false;
  bool split = false;
  bool strict = false;
  bool force = false;
};

/// How files are read, for every command.
void AddReadOptions(CLI::App& command, Words& words) {
  const std::string group = "Reading";
  command.add_option("--from", words.from, fmt::format("Format: {}", FormatList))
      ->type_name("FORMAT")
      ->check(CheckedFormat)
      ->group(group);
  command
      .add_option("--encoding", words.encoding,
                  "Encoding, such as utf-8, windows-1252 or utf-16;\nfound out when not given")
      ->type_name("NAME")
      ->check(CheckedEncoding)
      ->group(group);
  command
      .add_option("--separator", words.separator,
                  "What parts the fields of a table: tab, comma,\nsemicolon, pipe, space or a sign")
      ->type_name("SIGN")
      ->check(CheckedSeparator)
      ->group(group);
  command
      .add_option(
          "--columns", words.columns,
          "Fields (kvtml: languages) for front and back,\ncounted from 1; 1,2 when not given")
      ->type_name("FRONT,BACK")
      ->check(CheckedColumns)
      ->group(group);
  command.add_flag("--header", words.header, "The first row of a table names the columns")
      ->group(group);
  command.add_flag("--no-header", words.noHeader, "The first row of a table is a card")
      ->group(group);
}

void AddFiles(CLI::App& command, Words& words, const std::string& description) {
  command.add_option("FILE", words.files, description)->required()->type_name("");
}

CLI::App& AddCommand(CLI::App& app, const std::string& name, const char* summary, const char* words,
                     const char* footer) {
  CLI::App& command = *app.add_subcommand(name, summary);
  command.footer(footer);
  command.preparse_callback([&command, words](std::size_t) { command.description(words); });
  return command;
}

void AddConvertOptions(CLI::App& command, Words& words) {
  command.add_option("IN", words.in, "The file to read")->required()->type_name("");
  command.add_option("OUT", words.out, "The file to write")->required()->type_name("");
  AddReadOptions(command, words);

  std::string group = "Writing";
  command.add_option("--to", words.to, "Format: qbc, tsv, csv, kvtml or anki")
      ->type_name("FORMAT")
      ->check(CheckedFormat)
      ->group(group);
  command
      .add_option("--to-encoding", words.toEncoding,
                  "Encoding of a table or of Anki's text; utf-8 when\nnot given, utf-8-bom for "
                  "spreadsheets")
      ->type_name("NAME")
      ->check(CheckedEncoding)
      ->group(group);
  command.add_option("--to-separator", words.toSeparator, "What parts the fields of the table")
      ->type_name("SIGN")
      ->check(CheckedSeparator)
      ->group(group);
  command.add_flag("--to-header", words.toHeader, "Begin the table with the names of the columns")
      ->group(group);
  command.add_flag("--force", words.force, "Replace existing files")->group(group);
  command.add_flag("--strict", words.strict, "Write nothing when anything would be lost")
      ->group(group);

  group = "Cards";
  command.add_option("--topic", words.topic, "The stack's topic")->type_name("NAME")->group(group);
  command.add_option("--description", words.description, "The stack's description")
      ->type_name("TEXT")
      ->group(group);
  command.add_flag("--swap", words.swap, "Fronts become backs, and backs fronts")->group(group);
  command
      .add_flag(
          "--split", words.split,
          "More than 300 cards become several stacks,\nOUT-1.QBC, OUT-2.QBC and so on; from ten "
          "stacks on\nOUT-01.QBC, OUT-02.QBC")
      ->group(group);
  command.add_option("--media", words.media, "copy: pictures and sounds go to the folder of OUT")
      ->type_name("copy")
      ->check([](const std::string& word) {
        return word == "copy" ? std::string() : "the only thing to be done with media is copy";
      })
      ->group(group);
}

Request RequestOf(const Words& words, const CLI::App& command) {
  Request request;
  request.files = words.files;
  request.output = words.out;
  request.settings = words.settings;
  request.json = words.json;
  request.all = words.all;
  request.quiet = words.quiet;
  if (command.get_name() == "info") request.command = Command::Info;
  if (command.get_name() == "show") request.command = Command::Show;
  ConvertOptions& options = request.options;
  if (command.get_name() == "convert") {
    request.command = Command::Convert;
    request.files = {words.in};
    if (command.count("--topic") > 0) options.topic = FromUtf8(words.topic);
    if (command.count("--description") > 0) options.description = FromUtf8(words.description);
  }
  options.from = FormatOfName(words.from);
  options.to = FormatOfName(words.to);
  options.read.encoding = words.encoding;
  if (!words.separator.empty()) options.read.separator = SeparatorOf(words.separator);
  if (words.header) options.read.heading = Heading::Yes;
  if (words.noHeader) options.read.heading = Heading::No;
  if (!words.columns.empty()) options.read.columns = ColumnsOf(words.columns);
  options.write.encoding = words.toEncoding;
  if (!words.toSeparator.empty()) options.write.separator = SeparatorOf(words.toSeparator);
  if (words.toHeader) options.write.heading = Heading::Yes;
  options.swap = words.swap;
  options.split = words.split;
  options.strict = words.strict;
  options.force = words.force;
  options.copyMedia = words.media == "copy";
  return request;
}

}  // namespace

ParsedArguments ParseArguments(std::vector<std::string> arguments) {
  CLI::App app(ProgramWords, "quibconv");
  app.footer(ProgramFooter);
  app.set_version_flag("--version", "quibconv " + ToUtf8(ProgramVersion));
  app.require_subcommand(1);
  app.get_formatter()->column_width(28);
  Words words;

  CLI::App& check =
      AddCommand(app, "check", "Report what is odd about files", CheckWords, CheckFooter);
  AddFiles(check, words, "Files and folders");
  check
      .add_option("--settings", words.settings,
                  "The settings file that has the topics (QUIBCRDS.INI)")
      ->type_name("FILE");
  check.add_flag("--json", words.json, "Report for machines");
  check.add_flag("--all", words.all, "List every finding, not only the first ten of a kind");
  check.add_flag("-q,--quiet", words.quiet, "No summary");
  AddReadOptions(check, words);

  CLI::App& info = AddCommand(app, "info", "Tell what is in files", InfoWords, InfoFooter);
  AddFiles(info, words, "Files and folders");
  info.add_flag("--json", words.json, "Report for machines");
  AddReadOptions(info, words);

  CLI::App& show = AddCommand(app, "show", "Show the cards as a table", ShowWords, ShowFooter);
  AddFiles(show, words, "Files; \"-\" is the standard input");
  AddReadOptions(show, words);

  CLI::App& convert =
      AddCommand(app, "convert", "Write cards in another format", ConvertWords, ConvertFooter);
  AddConvertOptions(convert, words);
  convert.add_flag("--all", words.all, "List every loss, not only the first ten of a kind");
  convert.add_flag("-q,--quiet", words.quiet, "Do not say what was written");

  // As "excludes" the library would write it into the help.
  app.final_callback([&words] {
    if (words.header && words.noHeader) {
      throw CLI::ValidationError("--header", "does not go with --no-header");
    }
  });
  try {
    std::reverse(arguments.begin(), arguments.end());  // as the parser takes them
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream wrong;
    const int code = app.exit(error, out, wrong);
    return {std::nullopt, code == 0 ? out.str() : wrong.str(), code != 0};
  }
  return {RequestOf(words, *app.get_subcommands().front()), {}, false};
}
