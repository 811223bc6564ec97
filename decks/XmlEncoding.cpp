#include "decks/XmlEncoding.h"

#include "base/CodePage.h"
#include "base/LetterCase.h"
#include "decks/TextEncoding.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace {

using namespace std::string_view_literals;

constexpr std::string_view Spaces = " \t\r\n";

struct Beginning {
  std::string_view bytes;
  std::string_view encoding;
};
// Source: appendix F of the XML recommendation. Of two that begin alike the longer one comes first.
constexpr std::array<Beginning, 9> Beginnings = {{{Utf8Mark, MarkedUtf8Name},
                                                  {"\xFF\xFE\0\0"sv, "utf-32"},
                                                  {"\0\0\xFE\xFF"sv, "utf-32"},
                                                  {"\xFF\xFE"sv, "utf-16"},
                                                  {"\xFE\xFF"sv, "utf-16"},
                                                  {"<\0\0\0"sv, "utf-32le"},
                                                  {"\0\0\0<"sv, "utf-32be"},
                                                  {"<\0"sv, "utf-16le"},
                                                  {"\0<"sv, "utf-16be"}}};

/// What the declaration at the start says, or nothing.
std::string_view DeclaredEncoding(std::string_view bytes) {
  constexpr std::string_view Start = "<?xml";
  constexpr std::string_view Word = "encoding";
  if (!bytes.starts_with(Start)) return {};
  std::string_view rest = bytes.substr(0, std::min(bytes.find("?>"), bytes.size()));
  const std::size_t word = rest.find(Word);
  if (word == std::string_view::npos) return {};
  rest.remove_prefix(word + Word.size());
  const auto skipSpace = [&] {
    rest.remove_prefix(std::min(rest.find_first_not_of(Spaces), rest.size()));
  };
  skipSpace();
  if (!rest.starts_with('=')) return {};
  rest.remove_prefix(1);
  skipSpace();
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return {};
  const std::size_t end = rest.find(rest.front(), 1);
  return end == std::string_view::npos ? std::string_view() : rest.substr(1, end - 1);
}

/// The beginning of the file, read in an encoding, without a mark.
Text BeginningIn(std::string_view bytes, std::string_view encoding) {
  constexpr std::size_t Longest =
      400;  // whole characters of any encoding; a declaration is shorter
  Text text;
  std::string used;
  Findings ignored;
  if (!DecodeForeignText(bytes.substr(0, Longest), encoding, text, used, ignored)) return {};
  if (text.starts_with(u'\uFEFF')) text.erase(0, 1);
  return text;
}

/// Lists a declaration that says another encoding than the one which the first bytes say.
void ListContradiction(std::string_view bytes, std::string_view encoding, Findings& findings) {
  const std::string start = ToUtf8(BeginningIn(bytes, encoding));
  const std::string_view declared = DeclaredEncoding(start);
  if (declared.empty()) return;
  const Text said = FromUtf8(declared);
  // "UTF-16" leaves open what "utf-16be" says.
  if (EqualIgnoringCase(FromUtf8(encoding).substr(0, said.size()), said)) return;
  const TextView mark = u"<?xml";
  if (IsKnownEncoding(declared) && BeginningIn(bytes, declared).starts_with(mark)) return;
  findings.push_back(Found(FindingKind::Encoding, 1,
                           fmt::format("the file says that it is {}, and begins as {}; read as {}",
                                       Quoted(said), encoding, encoding)));
}

/// True when the declaration, read in the encoding, is the declaration.
bool ReadsItself(std::string_view bytes, std::string_view encoding) {
  const std::string_view sample = bytes.substr(0, 4);
  Text text;
  std::string used;
  Findings ignored;
  return DecodeForeignText(sample, encoding, text, used, ignored) && text == FromUtf8(sample);
}

}  // namespace

std::string XmlEncoding(std::string_view bytes, Findings& findings) {
  for (const Beginning& beginning : Beginnings) {
    if (!bytes.starts_with(beginning.bytes)) continue;
    ListContradiction(bytes, beginning.encoding, findings);
    return std::string(beginning.encoding);
  }
  const std::string_view declared = DeclaredEncoding(bytes);
  if (declared.empty() || !IsKnownEncoding(declared) || ReadsItself(bytes, declared)) {
    return std::string(declared);
  }
  findings.push_back(
      Found(FindingKind::Encoding, 1,
            fmt::format("the file says that it is {}, and it is not", Quoted(FromUtf8(declared)))));
  return {};
}
