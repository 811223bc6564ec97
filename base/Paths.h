#pragma once

#include "base/Text.h"

#include <string>
#include <string_view>

/// Both separators are understood wherever one is looked for, "/" is the one that we write.
constexpr bool IsSeparator(char16_t unit) { return unit == u'/' || unit == u'\\'; }

/// The part after the last separator; the whole text when there is none.
TextView BaseName(TextView path);

/// The part up to and including the last separator; empty when there is none.
TextView FolderPart(TextView path);

/// `folder` ending in a separator. An empty folder stays empty: it means the current folder.
Text WithSeparator(TextView folder);

/// True when a folder is `folder` or lies in it, at any depth. Both are absolute and plainly
/// written: no "..", no link is looked for.
bool LiesIn(TextView inner, TextView folder);

/// A name or a path as it is shown on one line: whatever would end the line, cannot be seen or
/// turns the direction of writing around is replaced by a sign for it.
Text ShownName(TextView name);

/// A file name of the system as text and back, without loss: bytes that are not valid UTF-8 become
/// the lone units DC80..DCFF.
Text DecodePath(std::string_view bytes);
std::string EncodePath(TextView path);
