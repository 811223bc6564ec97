#pragma once

#include "base/Text.h"

enum class MediaKind { Sound, Picture };

/// What becomes of a card's media name when the stack is saved and loaded again.
struct MediaFuture {
  enum class Fate {
    Stays,
    LosesFolder,  ///< the file has the bare name alone, which is looked for beside the stack
    IsCut,        ///< only a part stays a name; the rest becomes card text
    ChangesKind,  ///< it becomes the other kind's name: a sound in the picture's field
    BecomesText   ///< it has no ending that the format knows
  };

  Fate fate = Fate::Stays;
  Text kept;  ///< what stays a name of its kind; empty when nothing does
};

/// Follows a name, which is not empty, through a side line and back.
/// @param folder  of the stack; a name that begins with it loses nothing by losing it
MediaFuture FutureOfMedia(MediaKind kind, TextView name, TextView folder);

/// The same in words for the user. A name that stays is told to be there, or not to be.
/// @param found  whether the file is there now
Text MediaWords(MediaKind kind, const MediaFuture& future, bool found);
