#include "convert/TextEncoding.h"

#include "base/CodePage.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fmt/format.h>
#include <iconv.h>

namespace {

constexpr std::string_view ReplacementUtf8 = "\xEF\xBF\xBD";

bool EqualNames(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

/// The name that iconv knows an encoding by.
std::string SystemName(std::string_view encoding) {
  if (EqualNames(encoding, MarkedUtf8Name)) return "UTF-8";
  return std::string(encoding);
}

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : m_handle(::iconv_open(to.c_str(), from.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (IsOpen()) ::iconv_close(m_handle);
  }

  bool IsOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }

  /// Appends what becomes of `input`. Where it stops at bytes that it cannot convert, `onBad` gets
  /// the rest of the input and says how many bytes to skip; what stands for them follows.
  template <typename OnBad>
  void Run(std::string_view input, std::string& output, OnBad onBad, std::string_view instead) {
    while (!input.empty()) {
      const std::size_t left = Feed(input, output);
      if (left == 0) break;
      input = input.substr(input.size() - left);
      const std::size_t skipped = std::clamp<std::size_t>(onBad(input), 1, left);
      input.remove_prefix(skipped);
      std::string_view replacement = instead;
      if (m_encodeInstead) {
        Feed(replacement, output);
      } else {
        output.append(replacement);
      }
    }
    FlushState(output);
  }

  void EncodeWhatStandsInstead() { m_encodeInstead = true; }

 private:
  /// @return how many bytes of `input` are left
  std::size_t Feed(std::string_view input, std::string& output) {
    char* in = const_cast<char*>(input.data());  // the system's call changes nothing there
    std::size_t left = input.size();
    std::array<char, 4096> block{};
    while (left > 0) {
      char* out = block.data();
      std::size_t room = block.size();
      const std::size_t done = ::iconv(m_handle, &in, &left, &out, &room);
      const int error = errno;
      output.append(block.data(), block.size() - room);
      if (done == static_cast<std::size_t>(-1) && error != E2BIG) return left;
    }
    return 0;
  }

  void FlushState(std::string& output) {
    std::array<char, 64> block{};
    char* out = block.data();
    std::size_t room = block.size();
    (void)::iconv(m_handle, nullptr, nullptr, &out, &room);
    output.append(block.data(), block.size() - room);
  }

  iconv_t m_handle;
  bool m_encodeInstead = false;
};

/// By the mark at the start, or by what the bytes can be.
std::string GuessEncoding(std::string_view bytes, Findings& findings) {
  if (bytes.starts_with(Utf8Mark)) return std::string(MarkedUtf8Name);
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return "utf-16";
  if (ValidUtf8Length(bytes) == bytes.size()) return std::string(DefaultEncoding);
  findings.push_back(Remarked(0, "not UTF-8; read as Windows-1252 (--encoding says otherwise)"));
  return "windows-1252";
}

int LineOf(std::string_view text, std::size_t at) {
  return 1 + static_cast<int>(
                 std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

}  // namespace

bool DecodeForeignText(std::string_view bytes, std::string_view encoding, Text& text,
                       std::string& used, Findings& findings) {
  used = encoding.empty() ? GuessEncoding(bytes, findings) : std::string(encoding);
  const bool isUtf8 = EqualNames(used, DefaultEncoding) || EqualNames(used, MarkedUtf8Name);
  if (isUtf8 && ValidUtf8Length(bytes) == bytes.size()) {
    if (bytes.starts_with(Utf8Mark)) bytes.remove_prefix(Utf8Mark.size());
    text = FromUtf8(bytes);
    return true;
  }
  Converter converter("UTF-8", SystemName(used));
  if (!converter.IsOpen()) {
    findings.push_back(
        Failed(FindingKind::Encoding, 0, fmt::format("no encoding is called “{}”", used)));
    return false;
  }
  std::string utf8;
  utf8.reserve(bytes.size());
  std::size_t bad = 0;
  std::size_t firstBad = 0;
  const auto onBad = [&](std::string_view) -> std::size_t {
    if (bad++ == 0) firstBad = utf8.size();
    return 1;
  };
  converter.Run(bytes, utf8, onBad, ReplacementUtf8);
  if (bad > 0) {
    findings.push_back(Found(FindingKind::Encoding, LineOf(utf8, firstBad),
                             fmt::format("{} bytes are no {}; they become “\uFFFD”", bad, used)));
  }
  std::string_view decoded = utf8;
  if (decoded.starts_with(Utf8Mark)) decoded.remove_prefix(Utf8Mark.size());
  text = FromUtf8(decoded);
  return true;
}

bool EncodeForeignText(TextView text, std::string_view encoding, std::string& bytes) {
  const bool marked = EqualNames(encoding, MarkedUtf8Name);
  // Who reads the file takes a mark at its start away; one that is text needs another before it.
  const std::string mark(marked || text.starts_with(u'\uFEFF') ? Utf8Mark : std::string_view());
  const std::string utf8 = mark + ToUtf8(text);
  if (marked || EqualNames(encoding, DefaultEncoding)) {
    bytes = utf8;
    return true;
  }
  Converter converter(SystemName(encoding), "UTF-8");
  if (!converter.IsOpen()) return false;
  converter.EncodeWhatStandsInstead();
  bytes.clear();
  const auto characterLength = [](std::string_view rest) {
    std::size_t length = 1;
    while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80)
      ++length;
    return length;
  };
  converter.Run(utf8, bytes, characterLength, "?");
  return true;
}

bool IsKnownEncoding(std::string_view encoding) {
  return Converter("UTF-8", SystemName(encoding)).IsOpen();
}
