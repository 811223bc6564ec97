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
  Text decoded = ReplaceAll(text, u"^^", u"%%");
  decoded = ReplaceAll(decoded, u"^", LineBreak);
  return ReplaceAll(decoded, u"%%", u"^");
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

Text StripImportPrefix(TextView line, std::size_t most) {
  line = After(line, u'=');
  if (line.find(u'%') != TextView::npos) {
    line = After(line, u'%');
  } else {
    while (BeginsWithTag(line)) line = After(line, u'>');
  }
  return DecodeSideText(line, most);
}
