#include "cards/StackReader.h"

#include "base/CodePage.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

std::string Lines(std::initializer_list<std::string> lines) {
  std::string content;
  for (const std::string& line : lines) content += line + "\r\n";
  return content;
}

std::string PairsFrom(int first, int last) {
  std::string content;
  for (int i = first; i <= last; ++i) {
    content += "front" + std::to_string(i) + "  \r\nback" + std::to_string(i) + "  \r\n";
  }
  return content;
}

std::string ImportLine(char side, int number) {
  return side + std::to_string(number) + "=" + side + "text" + std::to_string(number) + "\r\n";
}

/// Reads "cards/x.QBC" or "cards/x.QBS".
class StackReaderTest : public testing::Test {
 protected:
  FileStatus Read(TextView fileName, ReadMode mode) {
    return ReadStackFile(stacks, files, prompts, u"cards", fileName, mode, [&](const Text& name) {
      checkedNames.push_back(name);
      promptsBeforeCheck = prompts.shown.size();
      return topicOfFile;
    });
  }
  FileStatus ReadStack(std::string content, ReadMode mode = ReadMode::Full) {
    files.Put(u"cards/x.QBC", std::move(content));
    return Read(u"x.QBC", mode);
  }
  FileStatus ReadImport(std::string content, ReadMode mode = ReadMode::Full) {
    files.Put(u"cards/x.QBS", std::move(content));
    return Read(u"x.QBS", mode);
  }

  void LoadOneStack() {
    ASSERT_EQ(ReadStack(Lines({"Topic", "Loaded", "kept  ", "kept  "})), FileStatus::Ok);
    checkedNames.clear();
  }

  void ExpectCard(int card, TextView front, TextView back) {
    EXPECT_EQ(stacks.Current().SideText(card, Front), front) << "card " << card;
    EXPECT_EQ(stacks.Current().SideText(card, Back), back) << "card " << card;
  }

  void ExpectNothingLoaded() {
    EXPECT_EQ(stacks.StackCount, -1);
    EXPECT_EQ(stacks.CurrentStack, 0);
    ASSERT_EQ(stacks.StackList.size(), 1U);
    EXPECT_EQ(stacks.Current().StackName, NoStackName);
    EXPECT_TRUE(checkedNames.empty());
  }

  void ExpectCountPrompt(TextView text) {
    ASSERT_EQ(prompts.shown.size(), 1U);
    ExpectPrompt(prompts.shown[0], text, PromptIcon::Exclamation, PromptButtons::Ok,
                 u"Quib!Cards 5.50 Error");
  }

  MemoryFiles files;
  StackStore stacks;
  ScriptedPrompts prompts;
  std::vector<Text> checkedNames;
  std::size_t promptsBeforeCheck = 0;
  Int16 topicOfFile = 4;
};

class ReadNativeStackTest : public StackReaderTest {};
class ReadImportStackTest : public StackReaderTest {};

TEST_F(StackReaderTest, AListenerHearsEachSideAsItsLineHoldsIt) {
  const std::string content = Lines({"Topic", "Description", "the cat^el perro.wav dog.bmp",
                                     std::string(260, 'x') + "  ", "again  ", "otra  "});
  std::vector<std::string> heard;
  const auto listener = [&](const SideRead& side) {
    heard.push_back(std::to_string(side.lineNumber) + " card " + std::to_string(side.card) +
                    " side " + std::to_string(side.side) + " " + ToUtf8(side.sound) + " " +
                    ToUtf8(side.picture) + " " + std::to_string(side.line.size()) + " " +
                    std::to_string(side.text.size()));
  };
  const auto anyTopic = [](const Text&) { return 0; };
  ASSERT_EQ(ReadStackContent(stacks, prompts, content, u"cards", u"x.QBC", ReadMode::Full, anyTopic,
                             listener),
            FileStatus::Ok);
  EXPECT_EQ(heard, (std::vector<std::string>{"3 card 1 side 0 cards/perro.wav cards/dog.bmp 28 11",
                                             "4 card 1 side 1   262 262", "5 card 2 side 0   7 7",
                                             "6 card 2 side 1   6 6"}));
  EXPECT_EQ(stacks.Current().SideText(1, Back).size(), 256U);
}

TEST_F(StackReaderTest, AListenerHearsTheSidesOfAnImportFileOnly) {
  const std::string content =
      Lines({"A title", "[WinQuib]", "Q1=house", "a remark", "A1=<wav>Haus.wav>Haus"});
  std::vector<std::string> heard;
  const auto listener = [&](const SideRead& side) {
    heard.push_back(std::to_string(side.lineNumber) + " " + std::string(side.line) + " -> " +
                    ToUtf8(side.text) + ", " + ToUtf8(side.sound));
  };
  ASSERT_EQ(ReadStackContent(
                stacks, prompts, content, u"", u"x.QBS", ReadMode::Full,
                [](const Text&) { return 0; }, listener),
            FileStatus::Ok);
  EXPECT_EQ(heard, (std::vector<std::string>{"3 Q1=house -> house, ",
                                             "5 A1=<wav>Haus.wav>Haus -> >Haus, Haus.wav"}));
}

}  // namespace

// --- Stack files

TEST_F(ReadNativeStackTest, ReadsTheCardsOfTheExample) {
  ASSERT_EQ(ReadStack(Lines({"Spanish", "Animals" + std::string(57, ' '), "dog perro.wav dog.bmp",
                             "perro perro.wav ", "the cat^el gato  ", "gato  "})),
            FileStatus::Ok);
  const CardStack& stack = stacks.Current();
  EXPECT_EQ(stack.CardCount, 2);
  ExpectCard(1, u"dog", u"perro");
  EXPECT_EQ(stack.SideSound(1, Front), u"cards/perro.wav");
  EXPECT_EQ(stack.SidePicture(1, Front), u"cards/dog.bmp");
  EXPECT_EQ(stack.SideSound(1, Back), u"cards/perro.wav");
  EXPECT_EQ(stack.SidePicture(1, Back), u"");
  ExpectCard(2, u"the cat\r\nel gato  ", u"gato  ");
  EXPECT_EQ(stack.SideSound(2, Front), u"");
  EXPECT_EQ(stack.SidePicture(2, Front), u"");
}

TEST_F(ReadNativeStackTest, KeepsTheTrailingBlanksOfASideWithoutMedia) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", "dog  ", "perro  "})), FileStatus::Ok);
  ExpectCard(1, u"dog  ", u"perro  ");
}

TEST_F(ReadNativeStackTest, SelectsTheNewStackAndLeavesItsNameToTheCaller) {
  LoadOneStack();
  ASSERT_EQ(ReadStack(Lines({"T", "D", "a  ", "b  "})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackCount, 1);
  EXPECT_EQ(stacks.CurrentStack, 1);
  EXPECT_EQ(stacks.Current().StackName, u"");
}

TEST_F(ReadNativeStackTest, TakesTheTopicFromTheCheckOfTheFilesTopicName) {
  ASSERT_EQ(ReadStack(Lines({"Spanish", "D", "a  ", "b  "})), FileStatus::Ok);
  EXPECT_EQ(checkedNames, std::vector<Text>{u"Spanish"});
  EXPECT_EQ(stacks.FileTopicName, u"Spanish");
  EXPECT_EQ(stacks.Current().TopicIndex, 4);
}

TEST_F(ReadNativeStackTest, ChecksTheTopicAfterTheLastCard) {
  files.Put(u"cards/x.QBC", Lines({"T", "D", "a  ", "b  "}));
  int cardsAtCheck = -1;
  (void)ReadStackFile(stacks, files, prompts, u"cards", u"x.QBC", ReadMode::Full, [&](const Text&) {
    cardsAtCheck = stacks.Current().CardCount;
    return 0;
  });
  EXPECT_EQ(cardsAtCheck, 1);
}

TEST_F(ReadNativeStackTest, CutsTheDescriptionTo64CharactersWithoutBlanksAtItsEnd) {
  ASSERT_EQ(ReadStack(Lines({"T", std::string(70, 'd'), "a  ", "b  "})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, Text(64, u'd'));
  ASSERT_EQ(ReadStack(Lines({"T", " Animals   ", "a  ", "b  "})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, u" Animals");
}

TEST_F(ReadNativeStackTest, ASecondStackReplacesDescriptionAndTopicName) {
  LoadOneStack();
  ASSERT_EQ(ReadStack(Lines({"French", "Verbs", "a  ", "b  "})), FileStatus::Ok);
  EXPECT_EQ(stacks.FileTopicName, u"French");
  EXPECT_EQ(stacks.StackDescription, u"Verbs");
  EXPECT_EQ(stacks.At(0).SideText(1, Front), u"kept  ");
}

TEST_F(ReadNativeStackTest, HeaderOnlyReadsTwoLinesAndAppendsNothing) {
  EXPECT_EQ(ReadStack(Lines({"Spanish", "Animals"}), ReadMode::HeaderOnly), FileStatus::Ok);
  EXPECT_EQ(stacks.FileTopicName, u"Spanish");
  EXPECT_EQ(stacks.StackDescription, u"Animals");
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, AnEmptyFileIsReadPastItsEnd) {
  EXPECT_EQ(ReadStack(""), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, AFileOfOneLineIsReadPastItsEnd) {
  EXPECT_EQ(ReadStack(Lines({"Spanish"})), FileStatus::PastEnd);
  EXPECT_EQ(ReadStack(Lines({"Spanish"}), ReadMode::HeaderOnly), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, AFileOfTwoLinesIsReadPastItsEnd) {
  EXPECT_EQ(ReadStack(Lines({"Spanish", "Animals"})), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, AFrontWithoutBackIsReadPastTheEnd) {
  EXPECT_EQ(ReadStack(Lines({"T", "D", "a  ", "b  ", "c  "})), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, AnEmptyExtraLineMakesAnOddNumber) {
  EXPECT_EQ(ReadStack(Lines({"T", "D", "a  ", "b  ", ""})), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, TwoEmptyLinesAreACard) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", "", ""})), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 1);
  ExpectCard(1, u"", u"");
}

TEST_F(ReadNativeStackTest, AFailureKeepsTheOtherStacksAndTheSelection) {
  LoadOneStack();
  LoadOneStack();
  stacks.CurrentStack = 0;
  for (const char* content : {"", "T\r\n", "T\r\nD\r\n", "T\r\nD\r\na\r\n"}) {
    EXPECT_EQ(ReadStack(content), FileStatus::PastEnd);
    EXPECT_EQ(stacks.StackCount, 1);
    EXPECT_EQ(stacks.CurrentStack, 0);
    EXPECT_EQ(stacks.StackList.size(), 2U);
    EXPECT_EQ(stacks.At(1).SideText(1, Back), u"kept  ");
  }
  EXPECT_TRUE(checkedNames.empty());
}

TEST_F(ReadNativeStackTest, AFailureKeepsWhatWasReadOfTheHeader) {
  LoadOneStack();
  EXPECT_EQ(ReadStack(Lines({"French", "Verbs", "a  "})), FileStatus::PastEnd);
  EXPECT_EQ(stacks.FileTopicName, u"French");
  EXPECT_EQ(stacks.StackDescription, u"Verbs");
  EXPECT_EQ(ReadStack(Lines({"German"})), FileStatus::PastEnd);
  EXPECT_EQ(stacks.FileTopicName, u"German");
  EXPECT_EQ(stacks.StackDescription, u"Verbs");
}

TEST_F(ReadNativeStackTest, AFileThatCannotBeReadChangesNothing) {
  LoadOneStack();
  EXPECT_EQ(Read(u"missing.QBC", ReadMode::Full), FileStatus::FileNotFound);
  files.failRead = FileStatus::PathAccess;
  EXPECT_EQ(Read(u"x.QBC", ReadMode::Full), FileStatus::PathAccess);
  EXPECT_EQ(stacks.StackCount, 0);
  EXPECT_EQ(stacks.StackDescription, u"Loaded");
  EXPECT_EQ(stacks.FileTopicName, u"Topic");
}

TEST_F(ReadNativeStackTest, AMissingFolderIsAPathNotFound) {
  EXPECT_EQ(ReadStackFile(stacks, files, prompts, u"nowhere", u"x.QBC", ReadMode::Full, {}),
            FileStatus::PathNotFound);
}

TEST_F(ReadNativeStackTest, AFolderMayEndInASeparator) {
  files.Put(u"cards/x.QBC", Lines({"T", "D", "a a.wav ", "b  "}));
  ASSERT_EQ(ReadStackFile(stacks, files, prompts, u"cards/", u"x.QBC", ReadMode::Full,
                          [](const Text&) { return 0; }),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"cards/a.wav");
}

TEST_F(ReadNativeStackTest, ReadsExactly300Cards) {
  ASSERT_EQ(ReadStack("T\r\nD\r\n" + PairsFrom(1, 300)), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 300);
  ExpectCard(300, u"front300  ", u"back300  ");
}

TEST_F(ReadNativeStackTest, IgnoresLinesBehindCard300) {
  ASSERT_EQ(ReadStack("T\r\nD\r\n" + PairsFrom(1, 301)), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 300);
  ASSERT_EQ(ReadStack("T\r\nD\r\n" + PairsFrom(1, 300) + "odd\r\n"), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 300);
}

TEST_F(ReadNativeStackTest, CutsATextTo256Characters) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", std::string(256, 'a') + "b  ", std::string(300, 'c')})),
            FileStatus::Ok);
  ExpectCard(1, Text(256, u'a'), Text(256, u'c'));
}

TEST_F(ReadNativeStackTest, DecodesBeforeItCuts) {
  ASSERT_EQ(
      ReadStack(Lines({"T", "D", std::string(254, 'a') + "^bc", std::string(255, 'a') + "^^b"})),
      FileStatus::Ok);
  ExpectCard(1, Text(254, u'a') + u"\r\n", Text(255, u'a') + u"^");
}

TEST_F(ReadNativeStackTest, ACutBetweenCrAndLfLeavesTheCr) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", std::string(255, 'a') + "^b", "x  "})), FileStatus::Ok);
  ExpectCard(1, Text(255, u'a') + u"\r", u"x  ");
}

TEST_F(ReadNativeStackTest, NeverCutsBetweenTheTwoUnitsOfACharacter) {
  ASSERT_EQ(ReadStack("\xEF\xBB\xBF" +
                      Lines({"T", "D", std::string(255, 'a') + "\xF0\x9F\x98\x80", "x"})),
            FileStatus::Ok);
  ExpectCard(1, Text(255, u'a'), u"x");
}

TEST_F(ReadNativeStackTest, MediaNamesDoNotCountForTheLength) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", std::string(256, 'a') + " x.wav x.bmp", "x  "})),
            FileStatus::Ok);
  ExpectCard(1, Text(256, u'a'), u"x  ");
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"cards/x.wav");
  EXPECT_EQ(stacks.Current().SidePicture(1, Front), u"cards/x.bmp");
}

TEST_F(ReadNativeStackTest, TurnsASoundLikeWordIntoASound) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", "the file intro.wav  ", "b  "})), FileStatus::Ok);
  ExpectCard(1, u"the file", u"b  ");
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"cards/intro.wav");
}

TEST_F(ReadNativeStackTest, ReadsUnixLineEnds) {
  ASSERT_EQ(ReadStack("T\nD\na  \nb  \n"), FileStatus::Ok);
  ExpectCard(1, u"a  ", u"b  ");
}

TEST_F(ReadNativeStackTest, ALastLineWithoutEndCounts) {
  ASSERT_EQ(ReadStack("T\r\nD\r\na  \r\nb"), FileStatus::Ok);
  ExpectCard(1, u"a  ", u"b");
}

TEST_F(ReadNativeStackTest, AnEndMarkBehindTheLastLineIsNoLine) {
  ASSERT_EQ(ReadStack(Lines({"T", "D", "a  ", "b  "}) + "\x1A"), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 1);
}

TEST_F(ReadNativeStackTest, ReadsAFileMarkedAsUtf8) {
  ASSERT_EQ(
      ReadStack("\xEF\xBB\xBF" + Lines({"\xD0\xA0", "\xD0\x94", "\xD0\xB4\xD0\xB0  ", "ja  "})),
      FileStatus::Ok);
  EXPECT_EQ(stacks.FileTopicName, u"\u0420");
  EXPECT_EQ(stacks.StackDescription, u"\u0414");
  ExpectCard(1, u"\u0434\u0430  ", u"ja  ");
}

TEST_F(ReadNativeStackTest, ReadsWindows1252) {
  ASSERT_EQ(ReadStack(Lines({"T", "D",
                             "\xBF"
                             "d\xF3nde?  ",
                             "\x80  "})),
            FileStatus::Ok);
  ExpectCard(1, u"\u00BFd\u00F3nde?  ", u"\u20AC  ");
}

TEST_F(ReadNativeStackTest, FindsTheFileInAnotherLetterCase) {
  files.Put(u"cards/VERBS.QBC", Lines({"T", "D", "a  ", "b  "}));
  EXPECT_EQ(Read(u"verbs.qbc", ReadMode::Full), FileStatus::Ok);
}

TEST_F(ReadNativeStackTest, AStackTooManyForA16BitNumberIsAnOverflow) {
  stacks.StackCount = INT16_MAX;
  EXPECT_EQ(ReadStack(Lines({"T", "D", "a  ", "b  "})), FileStatus::Overflow);
  EXPECT_EQ(stacks.StackCount, INT16_MAX);
  EXPECT_EQ(stacks.CurrentStack, 0);
}

TEST_F(ReadNativeStackTest, AFaultOfTheTopicCheckLeavesNoStackBehind) {
  files.Put(u"cards/x.QBC", Lines({"T", "D", "a  ", "b  "}));
  const auto check = [](const Text&) -> Int16 { throw Fault(FileStatus::SubscriptOutOfRange); };
  EXPECT_THROW(
      (void)ReadStackFile(stacks, files, prompts, u"cards", u"x.QBC", ReadMode::Full, check),
      Fault);
  ExpectNothingLoaded();
}

TEST_F(ReadNativeStackTest, EveryCodeOfWindows1252IsReadAsItsCharacter) {
  for (int code = 0; code <= 255; ++code) {
    if (code == '\n' || code == '^') continue;  // a line end and a line break
    const std::string front = std::string("<") + static_cast<char>(code) + ">";
    ASSERT_EQ(ReadStack(Lines({"T", "D", front, "b"})), FileStatus::Ok) << code;
    ExpectCard(1, Text(u"<") + CharOfCode(static_cast<CharCode>(code)) + u">", u"b");
  }
}

// --- Import files

TEST_F(ReadImportStackTest, ReadsTheCardsOfTheExample) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=house", "A1=Haus", "Q2=<abc>cat", "A2=50%Katze"})),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 2);
  ExpectCard(1, u"house", u"Haus");
  ExpectCard(2, u"cat", u"Katze");
}

TEST_F(ReadImportStackTest, ANameWithQbsAnywhereInAnyLetterCaseIsAnImport) {
  for (const TextView name : {u"x.QBS", u"x.qbs", u"x.qBs.QBC", u"x.QBSX"}) {
    files.Put(Text(u"cards/") + Text(name), Lines({"[WinQuib]", "Q1=a", "A1=b"}));
    ASSERT_EQ(Read(name, ReadMode::Full), FileStatus::Ok) << ToUtf8(name);
    ExpectCard(1, u"a", u"b");
  }
}

TEST_F(ReadImportStackTest, AFolderWithQbsInItsNameMakesNoImport) {
  files.Put(u"old.QBS/x.QBC", Lines({"T", "D", "a  ", "b  "}));
  ASSERT_EQ(ReadStackFile(stacks, files, prompts, u"old.QBS", u"x.QBC", ReadMode::Full,
                          [](const Text&) { return 0; }),
            FileStatus::Ok);
  ExpectCard(1, u"a  ", u"b  ");
}

TEST_F(ReadImportStackTest, AMarkedFileHasAFixedDescription) {
  ASSERT_EQ(ReadImport(Lines({"My [WINquib] cards", "Q1=a", "A1=b"})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, u"WinQuib Card Set");
}

TEST_F(ReadImportStackTest, AnUnmarkedFileIsDescribedByItsFirstLine) {
  ASSERT_EQ(ReadImport(Lines({std::string(70, 't'), "[WinQuib]", "Q1=a", "A1=b"})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, Text(64, u't'));
}

TEST_F(ReadImportStackTest, AnUnmarkedFileIsSkippedUpToItsMark) {
  ASSERT_EQ(
      ReadImport(Lines({"Title", "Q1=skipped", "x [winQUIB] Q1=also skipped", "Q1=a", "A1=b"})),
      FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 1);
  ExpectCard(1, u"a", u"b");
}

TEST_F(ReadImportStackTest, AnUnmarkedFileWithoutAnyMarkIsReadPastItsEnd) {
  EXPECT_EQ(ReadImport(Lines({"Title", "Q1=a", "A1=b"})), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadImportStackTest, AFileThatEndsWithItsMarkIsReadPastItsEnd) {
  EXPECT_EQ(ReadImport(Lines({"[WinQuib]"})), FileStatus::PastEnd);
  EXPECT_EQ(ReadImport(Lines({"Title", "[WinQuib]"})), FileStatus::PastEnd);
  ExpectNothingLoaded();
}

TEST_F(ReadImportStackTest, AnEmptyFileIsReadPastItsEndAndForgetsTheTopicName) {
  LoadOneStack();
  EXPECT_EQ(ReadImport(""), FileStatus::PastEnd);
  EXPECT_EQ(stacks.FileTopicName, u"");
  EXPECT_EQ(stacks.StackDescription, u"Loaded");
  EXPECT_EQ(stacks.StackCount, 0);
}

TEST_F(ReadImportStackTest, AFailureKeepsTheOtherStacksAndTheSelection) {
  LoadOneStack();
  LoadOneStack();
  stacks.CurrentStack = 0;
  EXPECT_EQ(ReadImport(Lines({"[WinQuib]"})), FileStatus::PastEnd);
  EXPECT_EQ(stacks.StackCount, 1);
  EXPECT_EQ(stacks.CurrentStack, 0);
  EXPECT_EQ(stacks.StackDescription, u"WinQuib Card Set");
}

TEST_F(ReadImportStackTest, HeaderOnlyReadsOneLineAndAppendsNothing) {
  EXPECT_EQ(ReadImport(Lines({"Title"}), ReadMode::HeaderOnly), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, u"Title");
  EXPECT_EQ(ReadImport(Lines({"[WinQuib]"}), ReadMode::HeaderOnly), FileStatus::Ok);
  EXPECT_EQ(stacks.StackDescription, u"WinQuib Card Set");
  ExpectNothingLoaded();
}

TEST_F(ReadImportStackTest, ChecksAnEmptyTopicName) {
  stacks.FileTopicName = u"Spanish";
  topicOfFile = 0;
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=a", "A1=b"})), FileStatus::Ok);
  EXPECT_EQ(checkedNames, std::vector<Text>{u""});
  EXPECT_EQ(stacks.Current().TopicIndex, 0);
}

TEST_F(ReadImportStackTest, MatchesMarksAnywhereInAnyLetterCase) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "  xq1=a", "-- a1=b"})), FileStatus::Ok);
  ExpectCard(1, u"a", u"b");
}

TEST_F(ReadImportStackTest, ALineWithBothMarksIsAQuestion) {
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "A1=x Q1=y"})), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 0);
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"x Q1=y");
}

TEST_F(ReadImportStackTest, OnlyTheExpectedNumberMatches) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q2=early", "Q01=zero", "Q1=a", "Q1=twice", "A1=b"})),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 1);
  ExpectCard(1, u"a", u"b");
}

TEST_F(ReadImportStackTest, IgnoresOtherLines) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "", "; note", "Q1=a", "noise", "A1=b", "end"})),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 1);
}

TEST_F(ReadImportStackTest, TheOrderOfQuestionsAndAnswersIsFree) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "A1=b1", "A2=b2", "Q1=a1", "Q2=a2"})), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 2);
  ExpectCard(2, u"a2", u"b2");
}

TEST_F(ReadImportStackTest, UnequalCountsKeepTheSmallerAndSaySo) {
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=q", "A1=a", "Q2=q", "A2=a", "Q3=q", "A3=a", "Q4=q",
                              "A4=a", "Q5=q"})),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 4);
  ExpectCountPrompt(u"Problem loading cards after 4");
}

TEST_F(ReadImportStackTest, TellsTheCountBeforeItChecksTheTopic) {
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=q", "A1=a", "A2=a"})), FileStatus::Ok);
  EXPECT_EQ(promptsBeforeCheck, 1U);
  EXPECT_EQ(checkedNames.size(), 1U);
}

TEST_F(ReadImportStackTest, KeepsAStackWithoutCompleteCards) {
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=q"})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackCount, 0);
  EXPECT_EQ(stacks.Current().CardCount, 0);
  ExpectCountPrompt(u"Problem loading cards after 0");
}

TEST_F(ReadImportStackTest, KeepsAStackWithoutAnyDataLineAndSaysNothing) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "nothing"})), FileStatus::Ok);
  EXPECT_EQ(stacks.StackCount, 0);
  EXPECT_EQ(stacks.Current().CardCount, 0);
}

TEST_F(ReadImportStackTest, OfThreeHundredAlternatingPairsTheLastIsNeverComplete) {
  prompts.Expect(Answer::Ok);
  std::string content = "[WinQuib]\r\n";
  for (int i = 1; i <= 300; ++i) content += ImportLine('Q', i) + ImportLine('A', i);
  ASSERT_EQ(ReadImport(content), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 299);
  ExpectCountPrompt(u"Problem loading cards after 299");
}

TEST_F(ReadImportStackTest, OfThreeHundredQuestionsFirstNoAnswerIsRead) {
  prompts.Expect(Answer::Ok);
  std::string content = "[WinQuib]\r\n";
  for (int i = 1; i <= 300; ++i) content += ImportLine('Q', i);
  for (int i = 1; i <= 300; ++i) content += ImportLine('A', i);
  ASSERT_EQ(ReadImport(content), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 0);
  ExpectCountPrompt(u"Problem loading cards after 0");
}

TEST_F(ReadImportStackTest, Reads299Pairs) {
  std::string content = "[WinQuib]\r\n";
  for (int i = 1; i <= 299; ++i) content += ImportLine('Q', i) + ImportLine('A', i);
  ASSERT_EQ(ReadImport(content), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().CardCount, 299);
  ExpectCard(299, u"Qtext299", u"Atext299");
}

TEST_F(ReadImportStackTest, TakesASoundBehindATag) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=<snd>my dog.wav", "A1=<snd>b.wav<abc>"})),
            FileStatus::Ok);
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"cards/my dog.wav");
  ExpectCard(1, u"", u"");
}

TEST_F(ReadImportStackTest, ASoundWithoutTagSwallowsTheLineInFrontOfIt) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=dog dog.wav", "A1=b"})), FileStatus::Ok);
  ExpectCard(1, u"", u"b");
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"cards/Q1=dog dog.wav");
}

TEST_F(ReadImportStackTest, ReadsNoPictures) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=dog dog.bmp", "A1=b"})), FileStatus::Ok);
  ExpectCard(1, u"dog dog.bmp", u"b");
  EXPECT_EQ(stacks.Current().SidePicture(1, Front), u"");
}

TEST_F(ReadImportStackTest, DecodesBeforeItCutsTo256Characters) {
  ASSERT_EQ(ReadImport(Lines({"[WinQuib]", "Q1=" + std::string(254, 'a') + "^bc",
                              "A1=" + std::string(300, 'c')})),
            FileStatus::Ok);
  ExpectCard(1, Text(254, u'a') + u"\r\n", Text(256, u'c'));
}

TEST_F(ReadImportStackTest, ReadsAFileMarkedAsUtf8) {
  ASSERT_EQ(ReadImport("\xEF\xBB\xBF[WinQuib]\nQ1=\xD0\xB4\nA1=ja\n"), FileStatus::Ok);
  ExpectCard(1, u"\u0434", u"ja");
}
