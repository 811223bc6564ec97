#include "authoring/MediaFuture.h"

#include "base/Paths.h"
#include "cards/SideLine.h"

MediaFuture FutureOfMedia(MediaKind kind, TextView name, TextView folder) {
  using Fate = MediaFuture::Fate;
  const bool isSound = kind == MediaKind::Sound;
  Text text = u"x";  // a card text; what is not taken for a name joins it
  Text line;
  (void)EncodeSideLine(text, isSound ? name : TextView(), isSound ? TextView() : name, line);
  const Text sound = TakeSoundName(line, {}, u' ');
  const Text picture = TakePictureName(line, {}, u' ');
  const Text& kept = isSound ? sound : picture;
  const Text& other = isSound ? picture : sound;
  if (kept.empty()) return {other.empty() ? Fate::BecomesText : Fate::ChangesKind, {}};
  if (!other.empty() || kept != BaseName(name)) return {Fate::IsCut, kept};
  const TextView lost = FolderPart(name);
  const bool beside = lost.empty() || lost == WithSeparator(folder);
  return {beside ? Fate::Stays : Fate::LosesFolder, kept};
}

Text MediaWords(MediaKind kind, const MediaFuture& future, bool found) {
  const bool isSound = kind == MediaKind::Sound;
  switch (future.fate) {
    case MediaFuture::Fate::Stays:
      return found ? u"The file is there" : u"The file was not found";
    case MediaFuture::Fate::LosesFolder:
      return u"Only " + future.kept + u" is saved: put the file into the folder of the stack";
    case MediaFuture::Fate::IsCut:
      return u"Only " + future.kept + u" is left after saving: a name must have no blanks";
    case MediaFuture::Fate::ChangesKind:
      return isSound ? u"This becomes a picture by saving: a sound must end in .wav"
                     : u"This becomes a sound by saving: a picture must end in .bmp, .jpg or .gif";
    case MediaFuture::Fate::BecomesText:
      break;
  }
  return isSound ? u"This becomes card text by saving: a sound must end in .wav"
                 : u"This becomes card text by saving: a picture must end in .bmp, .jpg or .gif";
}
