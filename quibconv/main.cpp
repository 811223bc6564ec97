#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "decks/Finding.h"
#include "quibconv/Progress.h"
#include "quibconv/Request.h"
#include "quibconv/Session.h"

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>
#include <wchar.h>

namespace {

constexpr std::size_t LargestInput = std::size_t{256} << 20;  // as of a file

/// Where both contents of a file lie while it is overwritten in a folder that takes no new file;
/// the same place as the main program's.
Text SafePlace() {
  if (const char* const data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') {
    return DecodePath(data) + u"/quibcards/rescue";
  }
  const char* const home = std::getenv("HOME");
  return DecodePath(home == nullptr ? "" : home) + u"/.local/share/quibcards/rescue";
}

int TerminalWidth() {
  winsize size{};
  const bool known = ::isatty(STDOUT_FILENO) == 1 && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return known ? size.ws_col : 0;
}

int WidthOfCharacter(char32_t character) { return ::wcwidth(static_cast<wchar_t>(character)); }

bool ReadStandardInput(std::string& content) {
  char block[65536];
  std::size_t got = 0;
  while ((got = std::fread(block, 1, sizeof block, stdin)) > 0) {
    content.append(block, got);
    if (content.size() > LargestInput) return false;
  }
  return std::ferror(stdin) == 0;
}

int Run(int argc, char** argv) {
  const ParsedArguments parsed = ParseArguments(std::vector<std::string>(argv + 1, argv + argc));
  if (!parsed.request) {
    std::fputs(PrintableLines(parsed.words).c_str(), parsed.wrong ? stderr : stdout);
    return parsed.wrong ? Unusable : AllIsWell;
  }
  DiskFiles files(SafePlace());
  Progress progress(::isatty(STDERR_FILENO) == 1);
  const auto writeTo = [&](std::FILE* stream) {
    return [&progress, stream](std::string_view words) {
      if (words.empty()) return;
      progress.Hide();
      std::fwrite(words.data(), 1, words.size(), stream);
    };
  };
  Surroundings surroundings{
      .files = files,
      .out = writeTo(stdout),
      .error = writeTo(stderr),
      .input = ReadStandardInput,
      .progress = [&](std::size_t done, std::size_t all) { progress.Show(done, all); },
      .terminalWidth = TerminalWidth(),
      .characterWidth = WidthOfCharacter};
  return RunRequest(*parsed.request, surroundings);
}

}  // namespace

int main(int argc, char** argv) {
  // For the widths of characters alone; nothing that is read or written depends on the locale.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  // A file that may not grow any more fails like one on a full disk, and what there is of it goes.
  std::signal(SIGXFSZ, SIG_IGN);
  int status = Unusable;
  try {
    status = Run(argc, argv);
  } catch (const std::bad_alloc&) {
    std::fputs("quibconv: error: Out of memory\n", stderr);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quibconv: error: %s\n", PrintableLines(error.what()).c_str());
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    std::fputs("quibconv: error: the standard output cannot be written\n", stderr);
    status = Unusable;
  }
  return status;
}
