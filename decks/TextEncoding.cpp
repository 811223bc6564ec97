#include "decks/TextEncoding.h"

#include "base/CodePage.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fmt/format.h>
#include <iconv.h>

/// The system's converter from one encoding to another.
class EncodingConverter {
 public:
  EncodingConverter(const std::string& to, const std::string& from)
      : m_handle(::iconv_open(to.c_str(), from.c_str())) {}
  EncodingConverter(const EncodingConverter&) = delete;
  EncodingConverter& operator=(const EncodingConverter&) = delete;
  ~EncodingConverter() {
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
  }

  /// Appends what ends a text in encodings that have states.
  void End(std::string& output) {
    std::array<char, 64> block{};
    char* out = block.data();
    std::size_t room = block.size();
    (void)::iconv(m_handle, nullptr, nullptr, &out, &room);
    output.append(block.data(), block.size() - room);
  }

  void EncodeWhatStandsInstead() { m_encodeInstead = true; }

 private:
  /// @return how many bytes of `input` are left
  std::size_t Feed(std::string_view input, std::string& output) {
    char* in = const_cast<char*>(input.data());  // the system's call changes nothing there
    std::size_t left = input.size();
    while (left > 0) {
      char* out = m_block.data();
      std::size_t room = m_block.size();
      const std::size_t done = ::iconv(m_handle, &in, &left, &out, &room);
      const int error = errno;
      output.append(m_block.data(), m_block.size() - room);
      if (done == static_cast<std::size_t>(-1) && error != E2BIG) return left;
    }
    return 0;
  }

  iconv_t m_handle;
  bool m_encodeInstead = false;
  std::array<char, 4096> m_block{};  // here, because filling it for each wrong byte would take long
};

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

/// By the mark at the start, or by what the bytes can be.
std::string GuessEncoding(std::string_view bytes, Findings& findings) {
  using namespace std::string_view_literals;
  if (bytes.starts_with(Utf8Mark)) return std::string(MarkedUtf8Name);
  if (bytes.starts_with("\xFF\xFE\0\0"sv) || bytes.starts_with("\0\0\xFE\xFF"sv)) return "utf-32";
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return "utf-16";
  if (ValidUtf8Length(bytes) == bytes.size()) return std::string(DefaultEncoding);
  findings.push_back(Remarked(0, "not UTF-8; read as Windows-1252 (--encoding says otherwise)"));
  return "windows-1252";
}

/// Encodes UTF-8. A character that the encoding lacks becomes "?".
void Encode(EncodingConverter& converter, std::string_view utf8, std::string& bytes) {
  converter.EncodeWhatStandsInstead();
  const auto characterLength = [](std::string_view rest) {
    std::size_t length = 1;
    while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80)
      ++length;
    return length;
  };
  converter.Run(utf8, bytes, characterLength, "?");
}

std::size_t EncodedLength(const std::string& encoding, std::string_view utf8) {
  EncodingConverter converter(encoding, "UTF-8");
  std::string bytes;
  Encode(converter, utf8, bytes);
  converter.End(bytes);
  return bytes.size();
}

/// In how many bytes the encoding counts: 2 of UTF-16, 4 of UTF-32, else 1.
std::size_t UnitLength(const std::string& encoding) {
  return std::max<std::size_t>(1, EncodedLength(encoding, "xx") - EncodedLength(encoding, "x"));
}

int LineOf(std::string_view text, std::size_t at) {
  return 1 + static_cast<int>(
                 std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

/// The system writes a mark at the start of UTF-16 and UTF-32; a file may have one or not.
bool DiffersInMarkAlone(std::size_t length, std::size_t again, std::size_t unit) {
  return unit > 1 && (again + unit == length || again == length + unit);
}

}  // namespace

bool DecodeToUtf8(std::string_view bytes, std::string_view encoding, std::string& storage,
                  std::string_view& utf8, std::string& used, Findings& findings) {
  used = encoding.empty() ? GuessEncoding(bytes, findings) : std::string(encoding);
  const bool isUtf8 = EqualNames(used, DefaultEncoding) || EqualNames(used, MarkedUtf8Name);
  if (isUtf8 && ValidUtf8Length(bytes) == bytes.size()) {
    utf8 = bytes;
    if (utf8.starts_with(Utf8Mark)) utf8.remove_prefix(Utf8Mark.size());
    return true;
  }
  if (!IsKnownEncoding(used)) {
    findings.push_back(Failed(FindingKind::Encoding, 0,
                              fmt::format("no encoding is called {}", Quoted(FromUtf8(used)))));
    return false;
  }
  EncodingConverter converter("UTF-8", SystemName(used));
  const std::size_t unit = UnitLength(SystemName(used));
  storage.clear();
  storage.reserve(bytes.size());
  std::size_t bad = 0;
  std::size_t badBytes = 0;
  std::size_t firstBad = 0;
  const auto onBad = [&](std::string_view rest) -> std::size_t {
    if (bad++ == 0) firstBad = storage.size();
    badBytes += std::min(unit, rest.size());
    return unit;
  };
  converter.Run(bytes, storage, onBad, ReplacementUtf8);
  converter.End(storage);
  if (bad > 0) {
    findings.push_back(Found(
        FindingKind::Encoding, LineOf(storage, firstBad),
        badBytes == 1 ? fmt::format("1 byte is no {}; it becomes “\uFFFD”", used)
                      : fmt::format("{} bytes are no {}; they become “\uFFFD”", badBytes, used)));
  } else if (const std::size_t again = EncodedLength(SystemName(used), storage);
             again != bytes.size() && !DiffersInMarkAlone(bytes.size(), again, unit)) {
    // The system does not tell of bytes that it passes over.
    findings.push_back(Found(FindingKind::Encoding, 0,
                             fmt::format("the text takes {} bytes in {}, and the file has {}: some "
                                         "of them may stand for nothing",
                                         again, used, bytes.size())));
  }
  utf8 = storage;
  if (utf8.starts_with(Utf8Mark)) utf8.remove_prefix(Utf8Mark.size());
  return true;
}

bool DecodeForeignText(std::string_view bytes, std::string_view encoding, Text& text,
                       std::string& used, Findings& findings) {
  std::string storage;
  std::string_view utf8;
  if (!DecodeToUtf8(bytes, encoding, storage, utf8, used, findings)) return false;
  text.clear();
  text.reserve(utf8.size());  // no more units than bytes
  AppendDecoded(text, utf8, FileEncoding::MarkedUtf8);
  return true;
}

TextEncoder::TextEncoder(std::string_view encoding)
    : m_marked(EqualNames(encoding, MarkedUtf8Name)) {
  if (m_marked || EqualNames(encoding, DefaultEncoding)) return;
  m_converter = std::make_unique<EncodingConverter>(SystemName(encoding), "UTF-8");
}

TextEncoder::~TextEncoder() = default;

void TextEncoder::Append(std::string_view utf8, std::string& bytes) {
  const auto encode = [&](std::string_view piece) {
    if (m_converter == nullptr) {
      bytes.append(piece);
    } else {
      Encode(*m_converter, piece, bytes);
    }
  };
  // Who reads the file takes a mark at its start away; one that is text needs another before it.
  if (!m_begun && (m_marked || utf8.starts_with(Utf8Mark))) encode(Utf8Mark);
  m_begun = true;
  encode(utf8);
}

void TextEncoder::End(std::string& bytes) {
  if (m_converter != nullptr) m_converter->End(bytes);
}

bool IsKnownEncoding(std::string_view encoding) {
  // The system takes more than names: "//" begins orders to leave characters out without a word,
  // and nothing at all stands for the encoding of the user's locale.
  const bool isName =
      !encoding.empty() && std::all_of(encoding.begin(), encoding.end(), [](char byte) {
        return byte > ' ' && byte < 0x7F && byte != '/' && byte != ',';
      });
  return isName && EncodingConverter("UTF-8", SystemName(encoding)).IsOpen();
}
