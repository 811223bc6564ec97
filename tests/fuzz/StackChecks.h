#pragma once

#include "base/LetterCase.h"
#include "base/Paths.h"
#include "cards/SideLine.h"
#include "cards/StackReader.h"
#include "cards/StackWriter.h"
#include "tests/fuzz/Require.h"
#include "tests/support/MemoryFiles.h"

#include <cstdint>

// What holds for every stack file and every import file, whatever its bytes are.

/// Says yes to everything and counts.
class AgreeablePrompts : public Prompts {
 public:
  int shown = 0;

  Answer Show(const Prompt& prompt) override {
    ++shown;
    return prompt.buttons == PromptButtons::YesNo ? Answer::Yes : Answer::Ok;
  }
};

/// A store with one loaded stack, which no reading may change.
class StoreWithOneStack {
 public:
  StoreWithOneStack() {
    CardStack& stack = stacks.Append();
    stack.StackName = u"kept";
    stack.SetSideText(1, Front, u"front");
    stack.SetSideSound(1, Back, u"back.wav");
    stack.CardCount = 1;
  }

  void RequireUntouched() const {
    const CardStack& stack = stacks.At(0);
    REQUIRE(stack.StackName == u"kept");
    REQUIRE(stack.CardCount == 1);
    REQUIRE(stack.SideText(1, Front) == u"front");
    REQUIRE(stack.SideSound(1, Back) == u"back.wav");
  }

  void RequireNothingAppended() const {
    REQUIRE(stacks.StackCount == 0);
    REQUIRE(stacks.CurrentStack == 0);
    REQUIRE(stacks.StackList.size() == 1);
  }

  StackStore stacks;
};

inline void RequireMediaName(const Text& path, TextView extension) {
  if (path.empty()) return;
  REQUIRE(path.starts_with(u"cards/"));
  REQUIRE(path.size() >= 10);
  REQUIRE(EqualIgnoringCase(TextView(path).substr(path.size() - 4), extension));
}

inline void RequireWholeStack(const CardStack& stack) {
  REQUIRE(stack.CardCount >= 0 && stack.CardCount <= MaxCards);
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      REQUIRE(stack.SideText(card, side).size() <= MaxLoadedText);
      RequireMediaName(stack.SideSound(card, side), u".wav");
      const Text picture = stack.SidePicture(card, side);
      const TextView extension =
          TextView(picture).substr(picture.size() < 4 ? 0 : picture.size() - 4);
      if (!EqualIgnoringCase(extension, u".jpg") && !EqualIgnoringCase(extension, u".gif")) {
        RequireMediaName(picture, u".bmp");
      }
    }
  }
}

/// True when a side is written and read back without any of the losses that belong to the format.
inline bool SurvivesSaving(TextView text, TextView sound, TextView picture) {
  for (const TextView lost : {u"^", u"%", u"\r\n\r\n", u".wav", u".bmp", u".jpg", u".gif"}) {
    if (ContainsIgnoringCase(text, lost)) return false;
  }
  for (const TextView name : {sound, picture}) {
    if (name.empty()) continue;
    if (name.find_first_of(u" \r\n\\") != TextView::npos || name.rfind(u'/') != 5) return false;
  }
  return true;
}

inline Text ReadBackText(TextView text, bool hasMedia) {
  if (hasMedia) return Text(TrimBlanks(text));
  return Text(CutText(Text(text) + u"  ", MaxLoadedText));
}

inline bool HasCaret(const CardStack& stack) {
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      if (stack.SideText(card, side).find(u'^') != TextView::npos) return true;
    }
  }
  return false;
}

/// Saves the selected stack under a new name and reads it again.
inline void RequireSavedStackReadsBack(StackStore& stacks, MemoryFiles& files, Prompts& prompts) {
  const CardStack before = stacks.Current();
  const FileStatus saved = WriteStackFile(stacks, files, prompts, u"cards", u"new.QBC",
                                          FileDialogMode::SaveNew, u"Topic");
  REQUIRE(stacks.StackFileNumber == nullptr);
  REQUIRE(files.openReplacements == 0);
  REQUIRE(files.Has(u"cards/new.QBC"));
  if (HasCaret(before)) {
    REQUIRE(saved == FileStatus::Overflow);
    return;
  }
  REQUIRE(saved == FileStatus::Ok);
  const Int16 countBefore = stacks.StackCount;
  const FileStatus read = ReadStackFile(stacks, files, prompts, u"cards", u"new.QBC",
                                        ReadMode::Full, [](const Text&) { return 3; });
  if (before.CardCount == 0) {
    REQUIRE(read == FileStatus::PastEnd);
    return;
  }
  REQUIRE(read == FileStatus::Ok);
  REQUIRE(stacks.StackCount == countBefore + 1);
  REQUIRE(stacks.FileTopicName == u"Topic");
  const CardStack& after = stacks.Current();
  REQUIRE(after.CardCount == before.CardCount);
  for (int card = 1; card <= before.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      const TextView text = before.SideText(card, side);
      const Text sound = before.SideSound(card, side);
      const Text picture = before.SidePicture(card, side);
      if (!SurvivesSaving(text, sound, picture)) continue;
      REQUIRE(after.SideText(card, side) == ReadBackText(text, !sound.empty() || !picture.empty()));
      REQUIRE(after.SideSound(card, side) == sound);
      REQUIRE(after.SidePicture(card, side) == picture);
    }
  }
}

/// Reads `data` under `fileName`, header and whole, and saves what was read.
inline void CheckStackBytes(const std::uint8_t* data, std::size_t size, TextView fileName,
                            int mostCards) {
  MemoryFiles files;
  files.Put(u"cards/" + Text(fileName), std::string(reinterpret_cast<const char*>(data), size));
  AgreeablePrompts prompts;
  StoreWithOneStack store;
  StackStore& stacks = store.stacks;
  int checks = 0;
  const auto read = [&](ReadMode mode) {
    return ReadStackFile(stacks, files, prompts, u"cards", fileName, mode, [&](const Text& name) {
      REQUIRE(name == stacks.FileTopicName);
      ++checks;
      return 7;
    });
  };

  const FileStatus header = read(ReadMode::HeaderOnly);
  REQUIRE(header == FileStatus::Ok || header == FileStatus::PastEnd);
  REQUIRE(checks == 0 && prompts.shown == 0);
  store.RequireNothingAppended();
  const Text description = stacks.StackDescription;
  REQUIRE(description.size() <= DescriptionWidth);
  REQUIRE(description == TrimRight(description));

  const FileStatus status = read(ReadMode::Full);
  REQUIRE(stacks.StackDescription == description);
  store.RequireUntouched();
  if (status != FileStatus::Ok) {
    REQUIRE(status == FileStatus::PastEnd);
    REQUIRE(checks == 0 && prompts.shown == 0);
    store.RequireNothingAppended();
    return;
  }
  REQUIRE(header == FileStatus::Ok);
  REQUIRE(checks == 1);
  REQUIRE(stacks.StackCount == 1 && stacks.CurrentStack == 1);
  REQUIRE(stacks.Current().TopicIndex == 7);
  REQUIRE(stacks.Current().CardCount <= mostCards);
  RequireWholeStack(stacks.Current());
  RequireSavedStackReadsBack(stacks, files, prompts);
  store.RequireUntouched();
}
