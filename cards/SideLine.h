#pragma once

#include "base/FileStatus.h"
#include "base/Text.h"

/// One side of a card as a line of a stack file: the encoded text, a blank, the bare name of the
/// sound file, a blank, the bare name of the picture file. See docs/formats.md, "Side line".

/// The longest text that a save can carry, in characters.
inline constexpr std::size_t LongestText = 32'767;

/// Encodes a side. Works on `text` itself: afterwards it holds its encoded form, a blank and the
/// sound's bare name.
/// @return `Overflow` for a text with a caret: doubling carets finds the same first caret again and
///         again, so the text grows in front of it past LongestText. `text` is left so, with 32,768
///         characters, and `line` untouched.
FileStatus EncodeSideLine(Text& text, TextView soundPath, TextView picturePath, Text& line);

/// "^^" stands for a caret, any other "^" for a line break. "%%" also becomes a caret: it is what
/// "^^" turns into on the way.
/// @param most  decodes no more than so many characters from the start; two of them make at least
///              one, so that the first n of the result are the same from 2n + 2 on
Text DecodeSideText(TextView text, std::size_t most = Text::npos);

/// How long the whole of DecodeSideText's result is.
std::size_t DecodedSideLength(TextView text);

/// Takes the first name ending in ".wav" (letter case ignored) out of `line`. The name begins after
/// the last `separator` before it, or with the line.
/// @return folder + name, or an empty text when there is none, and then `line` is untouched.
Text TakeSoundName(Text& line, TextView folder, char16_t separator);

/// The same for the first of ".bmp", ".jpg", ".gif", in this order, that `line` contains.
Text TakePictureName(Text& line, TextView folder, char16_t separator);

/// What an import line holds after its mark: drops all up to the first "="; then, where there is a
/// "%", all up to the first one, else every three-letter tag "<abc>" at the start. The rest is
/// decoded by DecodeSideText.
TextView StripImportPrefix(TextView line);
