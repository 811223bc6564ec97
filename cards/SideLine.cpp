#include "cards/SideLine.h"

#include "base/LetterCase.h"
#include "base/Paths.h"

#include <initializer_list>

namespace {

/// Where the first `extension`, letter case ignored, begins in `line`. Few card texts hold a dot at
/// all, and looking for one is quick.
std::size_t FindExtension(TextView line, TextView extension) {
  std::size_t dot = line.find(u'.');
  while (dot != TextView::npos &&
         !EqualIgnoringCase(line.substr(dot, extension.size()), extension)) {
    dot = line.find(u'.', dot + 1);
  }
  return dot;
}

/// `at` is where the extension (four characters) begins in `line`.
Text TakeName(Text& line, std::size_t at, TextView folder, char16_t separator) {
  const std::size_t end = at + 4;
  std::size_t start = at;
  while (start > 0 && line[start] != separator) --start;

  Text name(folder);
  if (start == 0 && line.front() != separator) {
    name.append(line, 0, end);
    Text(line, end).swap(line);  // gives the room back; the rest is not trimmed here
    return name;
  }
  name.append(line, start + 1, end - start - 1);
  line.erase(start + 1, end - start - 1);
  Text(TrimBlanks(line)).swap(line);
  return name;
}

bool BeginsWithTag(TextView line) { return line.size() >= 5 && line[0] == u'<' && line[4] == u'>'; }

TextView After(TextView line, char16_t mark) {
  const std::size_t at = line.find(mark);
  return at == TextView::npos ? line : line.substr(at + 1);
}

/// Calls `use` with each unit of a decoded side: as if all "^^" became "%%", then all "^" line
/// breaks, then all "%%" carets, each from left to right.
template <typename Use>
void ForEachDecoded(TextView text, Use use) {
  bool percent = false;  // one waits for another
  const auto give = [&](char16_t unit) {
    if (unit == u'%') {
      if (percent) use(u'^');
      percent = !percent;
      return;
    }
    if (percent) use(u'%');
    percent = false;
    use(unit);
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'^') {
      give(text[i]);
      continue;
    }
    const bool twice = i + 1 < text.size() && text[i + 1] == u'^';
    if (twice) ++i;
    give(twice ? u'%' : LineBreak[0]);
    give(twice ? u'%' : LineBreak[1]);
  }
  if (percent) use(u'%');
}

}  // namespace

FileStatus EncodeSideLine(Text& text, TextView soundPath, TextView picturePath, Text& line) {
  if (const std::size_t caret = text.find(u'^'); caret != Text::npos) {
    // Each step finds the first caret again and doubles it; the outcome of all steps in one go.
    // A text that is longer still gets the one caret of the step that fails.
    const std::size_t missing = text.size() <= LongestText ? LongestText + 1 - text.size() : 1;
    text.insert(caret, missing, u'^');
    return FileStatus::Overflow;
  }
  text = ReplaceAll(text, LineBreak, u"^");
  text.append(u" ").append(BaseName(soundPath));
  line = text;
  line.append(u" ").append(BaseName(picturePath));
  return FileStatus::Ok;
}

Text DecodeSideText(TextView text, std::size_t most) {
  text = text.substr(0, most);
  if (text.find_first_of(u"^%") == TextView::npos) return Text(text);
  Text decoded;
  decoded.reserve(DecodedSideLength(text));
  ForEachDecoded(text, [&](char16_t unit) { decoded += unit; });
  return decoded;
}

std::size_t DecodedSideLength(TextView text) {
  std::size_t length = 0;
  ForEachDecoded(text, [&](char16_t) { ++length; });
  return length;
}

Text TakeSoundName(Text& line, TextView folder, char16_t separator) {
  const std::size_t at = FindExtension(line, u".wav");
  return at == Text::npos ? Text() : TakeName(line, at, folder, separator);
}

Text TakePictureName(Text& line, TextView folder, char16_t separator) {
  for (const TextView extension : {u".bmp", u".jpg", u".gif"}) {
    const std::size_t at = FindExtension(line, extension);
    if (at != Text::npos) return TakeName(line, at, folder, separator);
  }
  return {};
}

TextView StripImportPrefix(TextView line) {
  line = After(line, u'=');
  if (line.find(u'%') != TextView::npos) {
    line = After(line, u'%');
  } else {
    while (BeginsWithTag(line)) line = After(line, u'>');
  }
  return line;
}
