#include "decks/NativeStack.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

const std::string Header = "Spanish\r\nAnimals\r\n";

Deck OneCard(TextView front, TextView back = u"b") {
  Deck deck;
  deck.topic = u"Spanish";
  deck.cards.resize(1);
  deck.cards[0].sides[0].text = front;
  deck.cards[0].sides[1].text = back;
  return deck;
}

std::vector<FindingKind> Kinds(const Findings& findings) {
  std::vector<FindingKind> kinds;
  for (const Finding& finding : findings) kinds.push_back(finding.kind);
  return kinds;
}

Text FrontOf(std::string_view bytes) {
  return ReadNative(bytes, u"x.QBC", {}).deck.cards.at(0).sides[0].text;
}

TEST(ReadNativeDeck, TextsAreWholeAndWithoutPadding) {
  Deck deck;
  Findings findings;
  const std::string longText(400, 'x');
  ASSERT_TRUE(
      ReadNativeDeck(Header + longText + "  \r\nperro perro.wav \r\n", u"a.QBC", deck, findings));
  EXPECT_EQ(deck.topic, u"Spanish");
  EXPECT_EQ(deck.description, u"Animals");
  EXPECT_EQ(deck.cards.at(0).sides[0].text.size(), 400U);
  EXPECT_EQ(deck.cards.at(0).sides[1], (DeckSide{u"perro", u"perro.wav", u""}));
  EXPECT_EQ(deck.cards.at(0).line, 3);
  EXPECT_TRUE(findings.empty());
}

TEST(ReadNativeDeck, CardsBehindThe300thAreListed) {
  std::string content = Header;
  for (int i = 0; i < 301; ++i) content += "a  \r\nb  \r\n";
  Deck deck;
  Findings findings;
  ASSERT_TRUE(ReadNativeDeck(content, u"a.QBC", deck, findings));
  EXPECT_EQ(deck.cards.size(), 300U);
  ASSERT_EQ(Kinds(findings), std::vector{FindingKind::ExtraCards});
  EXPECT_EQ(findings[0].line, 603);
}

TEST(ReadNativeDeck, WhatTheProgramRefusesIsRefused) {
  Deck deck;
  Findings findings;
  EXPECT_FALSE(ReadNativeDeck(Header, u"a.QBC", deck, findings));
  EXPECT_FALSE(ReadNativeDeck("", u"a.QBC", deck, findings));
  EXPECT_FALSE(ReadNativeDeck(Header + "front\r\n", u"a.QBC", deck, findings));
  EXPECT_EQ(findings.size(), 3U);
}

TEST(ReadNativeDeck, LinesOutOfOrderAreListed) {
  Deck deck;
  Findings findings;
  ASSERT_TRUE(
      ReadNativeDeck("[WinQuib]\r\nQ1=a\r\nA1=b\r\nQ3=c\r\nA3=d\r\n", u"a.QBS", deck, findings));
  EXPECT_EQ(Kinds(findings),
            (std::vector<FindingKind>{FindingKind::IgnoredLine, FindingKind::IgnoredLine}));
  EXPECT_EQ(findings[0].line, 4);
}

TEST(WriteNativeStack, SaysWhyATopicChanges) {
  const auto said = [](const Text& topic) {
    Deck deck;
    deck.topic = topic;
    deck.cards.resize(1);
    deck.cards[0].sides[0].text = u"a";
    Findings findings;
    (void)WriteNativeStack(deck, findings);
    return findings.empty() ? std::string() : findings[0].message;
  };
  EXPECT_TRUE(said(u"[a]").ends_with("has no brackets")) << said(u"[a]");
  EXPECT_TRUE(said(u"a\tb").ends_with("has no control characters")) << said(u"a\tb");
  EXPECT_TRUE(said(Text(21, u'x')).find("has at most 20 characters") != std::string::npos);
  EXPECT_TRUE(said(Text(21, u'x') + u"]").ends_with("no brackets, and at most 20 characters"));
}

TEST(ReadNativeDeck, ImportFilesSayWhatTheProgramSays) {
  Deck deck;
  Findings findings;
  ASSERT_TRUE(ReadNativeDeck("[WinQuib]\r\nQ1=a\r\nA1=b\r\nQ2=c\r\n", u"a.QBS", deck, findings));
  EXPECT_EQ(deck.cards.size(), 1U);
  EXPECT_EQ(Kinds(findings), std::vector{FindingKind::UnequalSides});
}

TEST(WriteNativeStack, IsWhatTheProgramWrites) {
  Deck deck = OneCard(u"the cat\r\nel gato", u"perro");
  deck.description = u"Animals";
  deck.cards[0].sides[1].sound = u"perro.wav";
  Findings findings;
  EXPECT_EQ(WriteNativeStack(deck, findings), "Spanish\r\nAnimals" + std::string(57, ' ') +
                                                  "\r\nthe cat^el gato  \r\nperro perro.wav \r\n");
  EXPECT_TRUE(findings.empty());
}

TEST(WriteNativeStack, ACaretIsReadBackAndListed) {
  Findings findings;
  EXPECT_EQ(FrontOf(WriteNativeStack(OneCard(u"2^10 ^^"), findings)), u"2^10 ^^");
  EXPECT_EQ(Kinds(findings), std::vector{FindingKind::Caret});
}

TEST(WriteNativeStack, PercentSignsThatTurnIntoACaretAreListed) {
  Findings findings;
  EXPECT_EQ(FrontOf(WriteNativeStack(OneCard(u"100%%"), findings)), u"100^");
  EXPECT_EQ(Kinds(findings), std::vector{FindingKind::ChangedText});
}

TEST(WriteNativeStack, EmptyLinesStayLines) {
  Findings findings;
  EXPECT_EQ(FrontOf(WriteNativeStack(OneCard(u"a\r\n\r\n\r\nb"), findings)), u"a\r\n \r\n \r\nb");
  EXPECT_EQ(Kinds(findings), std::vector{FindingKind::ChangedText});
}

TEST(WriteNativeStack, LongTextsAreCutBetweenCharacters) {
  Findings findings;
  EXPECT_EQ(FrontOf(WriteNativeStack(OneCard(Text(255, u'x') + u"\U0001F415"), findings)).size(),
            255U);
  EXPECT_EQ(FrontOf(WriteNativeStack(OneCard(Text(255, u'x') + u"\r\ny"), findings)).size(), 255U);
  EXPECT_EQ(Kinds(findings), (std::vector{FindingKind::LongText, FindingKind::LongText}));
}

TEST(WriteNativeStack, WordsThatReadAsMediaAreListed) {
  Findings findings;
  (void)WriteNativeStack(OneCard(u"see intro.wav twice"), findings);
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].kind, FindingKind::MediaWord);
  EXPECT_NE(findings[0].message.find("“intro.wav”"), std::string::npos);
}

TEST(WriteNativeStack, MediaThatACardCannotNameAreListedAndLeftOut) {
  Deck deck = OneCard(u"a");
  deck.cards[0].sides[0].sound = u"my dog.wav";
  deck.cards[0].sides[1].picture = u"dog.png";
  Findings findings;
  const Deck back = ReadNative(WriteNativeStack(deck, findings), u"x.QBC", {}).deck;
  EXPECT_EQ(back.cards.at(0).sides[0], (DeckSide{u"a", u"", u""}));
  EXPECT_EQ(back.cards.at(0).sides[1], (DeckSide{u"b", u"", u""}));
  EXPECT_EQ(Kinds(findings), (std::vector{FindingKind::MediaName, FindingKind::MediaName}));
}

TEST(WriteNativeStack, TopicAndDescriptionAreFitted) {
  Deck deck = OneCard(u"a");
  deck.topic = u"[Spanish] for travellers in summer";
  deck.description = Text(70, u'd');
  Findings findings;
  const Deck back = ReadNative(WriteNativeStack(deck, findings), u"x.QBC", {}).deck;
  EXPECT_EQ(back.topic, u"Spanish for travelle");
  EXPECT_EQ(back.description, Text(64, u'd'));
  EXPECT_EQ(Kinds(findings), (std::vector{FindingKind::Topic, FindingKind::Description}));
}

TEST(MediaNames, OnesThatAStackFileCanHold) {
  for (const TextView name : {u"a.wav", u"A.WAV", u"a.bmp.wav", u"犬.wav", u".wav"}) {
    EXPECT_TRUE(IsSoundName(name)) << Quoted(name);
  }
  for (const TextView name :
       {u"", u"a b.wav", u"x/a.wav", u"x\\a.wav", u"a.mp3", u"a.wav.bak", u"a.wave.wav"}) {
    EXPECT_FALSE(IsSoundName(name)) << Quoted(name);
  }
  for (const TextView name : {u"a.bmp", u"a.JPG", u"a.gif"}) EXPECT_TRUE(IsPictureName(name));
  for (const TextView name : {u"a.png", u"a.bmp.jpg", u"a.wav.gif", u"a b.gif"}) {
    EXPECT_FALSE(IsPictureName(name)) << Quoted(name);
  }
}

}  // namespace
