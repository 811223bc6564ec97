#include "authoring/MediaFuture.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

using Fate = MediaFuture::Fate;
constexpr TextView Folder = u"/cards";

struct Case {
  MediaKind kind;
  TextView name;
  Fate fate;
  TextView kept;
};

TEST(FutureOfMedia, FollowsTheNameThroughTheFile) {
  for (const Case& c : {
           Case{MediaKind::Sound, u"dog.wav", Fate::Stays, u"dog.wav"},
           Case{MediaKind::Sound, u"DOG.WAV", Fate::Stays, u"DOG.WAV"},
           Case{MediaKind::Sound, u"/cards/dog.wav", Fate::Stays, u"dog.wav"},
           Case{MediaKind::Sound, u"/other/dog.wav", Fate::LosesFolder, u"dog.wav"},
           Case{MediaKind::Sound, u"/my other/dog.wav", Fate::LosesFolder, u"dog.wav"},
           Case{MediaKind::Sound, u"my dog.wav", Fate::IsCut, u"dog.wav"},
           Case{MediaKind::Sound, u"dog.wav ", Fate::IsCut, u"dog.wav"},
           Case{MediaKind::Sound, u"a.wav.wav", Fate::IsCut, u"a.wav"},
           Case{MediaKind::Sound, u"dog.mp3", Fate::BecomesText, u""},
           Case{MediaKind::Sound, u"dog", Fate::BecomesText, u""},
           Case{MediaKind::Sound, u"dog.bmp", Fate::ChangesKind, u""},
           Case{MediaKind::Picture, u"dog.jpg", Fate::Stays, u"dog.jpg"},
           Case{MediaKind::Picture, u"dog.gif", Fate::Stays, u"dog.gif"},
           Case{MediaKind::Picture, u"/other/dog.bmp", Fate::LosesFolder, u"dog.bmp"},
           Case{MediaKind::Picture, u"my dog.bmp", Fate::IsCut, u"dog.bmp"},
           Case{MediaKind::Picture, u"dog.png", Fate::BecomesText, u""},
           Case{MediaKind::Picture, u"dog.jpeg", Fate::BecomesText, u""},
           Case{MediaKind::Picture, u"dog.wav", Fate::ChangesKind, u""},
       }) {
    const MediaFuture future = FutureOfMedia(c.kind, c.name, Folder);
    EXPECT_EQ(future.fate, c.fate) << testing::PrintToString(c.name);
    EXPECT_EQ(future.kept, c.kept);
  }
}

TEST(MediaWords, SayThatAFileIsThereOnlyOfANameThatStays) {
  const auto words = [](MediaKind kind, TextView name, bool found) {
    return MediaWords(kind, FutureOfMedia(kind, name, Folder), found);
  };
  EXPECT_EQ(words(MediaKind::Sound, u"dog.wav", true), u"The file is there");
  EXPECT_EQ(words(MediaKind::Sound, u"dog.wav", false), u"The file was not found");
  EXPECT_EQ(words(MediaKind::Sound, u"/x/dog.wav", true),
            u"Only dog.wav is saved: put the file into the folder of the stack");
  EXPECT_EQ(words(MediaKind::Picture, u"my dog.bmp", true),
            u"Only dog.bmp is left after saving: a name must have no blanks");
  EXPECT_EQ(words(MediaKind::Picture, u"dog.png", true),
            u"This becomes card text by saving: a picture must end in .bmp, .jpg or .gif");
  EXPECT_EQ(words(MediaKind::Sound, u"dog.mp3", true),
            u"This becomes card text by saving: a sound must end in .wav");
  EXPECT_EQ(words(MediaKind::Picture, u"dog.wav", true),
            u"This becomes a sound by saving: a picture must end in .bmp, .jpg or .gif");
  EXPECT_EQ(words(MediaKind::Sound, u"dog.bmp", true),
            u"This becomes a picture by saving: a sound must end in .wav");
}

}  // namespace
