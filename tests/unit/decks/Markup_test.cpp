#include "decks/Markup.h"

#include <gtest/gtest.h>

namespace {

DeckSide Decode(TextView field, bool html = true) {
  MarkupLosses losses;
  return DecodeMarkup(field, html, losses);
}

TEST(DecodeMarkup, LineBreaks) {
  EXPECT_EQ(Decode(u"a<br>b<BR/>c<br />").text, u"a\r\nb\r\nc\r\n");
  EXPECT_EQ(Decode(u"<div>a</div><div>b</div>").text, u"a\r\nb");
  EXPECT_EQ(Decode(u"a<div>b</div>c").text, u"a\r\nb\r\nc");
  EXPECT_EQ(Decode(u"a<div><br></div><div>b</div>").text, u"a\r\n\r\nb");
  EXPECT_EQ(Decode(u"<p>a</p>\n<p>b</p>").text, u"a\r\n\r\n\r\nb");
  EXPECT_EQ(Decode(u"a\nb").text, u"a\r\nb");
}

TEST(DecodeMarkup, CharacterReferences) {
  EXPECT_EQ(Decode(u"&lt;b&gt; &amp;amp; &quot;&apos;&nbsp;").text, u"<b> &amp; \"'\u00A0");
  EXPECT_EQ(Decode(u"&#233;&#xE9;&#x1F415;").text, u"éé\U0001F415");
  EXPECT_EQ(Decode(u"&eacute;&Ntilde;&yuml;&hellip;&nbsp;").text, u"éÑÿ…\u00A0");
  EXPECT_EQ(Decode(u"&; & &nosuchname; &#; &#x; &#zz; AT&T").text,
            u"&; & &nosuchname; &#; &#x; &#zz; AT&T");
  EXPECT_EQ(Decode(u"&#0;&#xD800;&#99999999;").text, u"&#0;&#xD800;&#99999999;");
}

TEST(DecodeMarkup, SoundsAndPictures) {
  EXPECT_EQ(Decode(u"perro [sound:perro.wav]"), (DeckSide{u"perro", u"perro.wav", u""}));
  EXPECT_EQ(Decode(u"<img src=\"dog.jpg\" alt='>'><br>dog"), (DeckSide{u"dog", u"", u"dog.jpg"}));
  EXPECT_EQ(Decode(u"<img class=x src=dog.jpg>"), (DeckSide{u"", u"", u"dog.jpg"}));
  EXPECT_EQ(Decode(u"<img data-src=\"no.jpg\" src='a&amp;b.jpg'>"),
            (DeckSide{u"", u"", u"a&b.jpg"}));
  EXPECT_EQ(Decode(u"<img alt=x>"), (DeckSide{u"", u"", u""}));
  EXPECT_EQ(Decode(u"[sound:a.wav"), (DeckSide{u"[sound:a.wav", u"", u""}));
}

std::string Others(TextView field) {
  MarkupLosses losses;
  (void)DecodeMarkup(field, true, losses);
  Findings findings;
  losses.others.AppendTo(findings);
  std::string words;
  for (const Finding& finding : findings) words += finding.message + "\n";
  return words;
}

TEST(DecodeMarkup, SaysWhichWordsAndAddressesItTookAway) {
  EXPECT_EQ(Others(u"<img src='a.jpg' alt='a dog'><img src=b.jpg alt=''>"),
            "the words “a dog” of a picture are left out\n");
  EXPECT_EQ(Others(u"<a class=x href=\"x.html\">a</a><VIDEO src=v.mp4></VIDEO><b>b</b>"),
            "where a mark “A” leads, “x.html”, is left out\n"
            "where a mark “VIDEO” leads, “v.mp4”, is left out\n");
  EXPECT_EQ(Others(u"&#0; &#xD800; &#x110000; &#0; &#zz; &; &amp;"),
            "“&#0;” stands for no character; it stays as it is 2 times\n"
            "“&#x110000;” stands for no character; it stays as it is\n"
            "“&#xD800;” stands for no character; it stays as it is\n");
}

TEST(DecodeMarkup, AttributesAreToldApart) {
  EXPECT_EQ(Decode(u"<img alt=\"a src=no.jpg\" src = yes.jpg />").picture, u"yes.jpg");
  EXPECT_EQ(Decode(u"<img alt=\"x\"src=\"yes.jpg\"/>").picture, u"yes.jpg");
  EXPECT_EQ(Decode(u"<img = / hidden src=yes.jpg src=no.jpg>").picture, u"yes.jpg");
}

TEST(DecodeMarkup, SaysWhatItTookAway) {
  MarkupLosses losses;
  (void)DecodeMarkup(u"<b>a</b>[sound:1.wav][sound:2.wav]<img src=1.jpg><img src=2.jpg>", true,
                     losses);
  EXPECT_TRUE(losses.formatting);
  EXPECT_EQ(losses.media, (std::vector<Text>{u"2.wav", u"2.jpg"}));
  MarkupLosses picture;
  (void)DecodeMarkup(u"<img alt=x>", true, picture);
  EXPECT_TRUE(picture.formatting);
  MarkupLosses none;
  (void)DecodeMarkup(u"a<br><div>b</div><!-- remark -->", true, none);
  EXPECT_FALSE(none.formatting);
}

TEST(DecodeMarkup, WhatIsNoMarkStays) {
  EXPECT_EQ(Decode(u"1 < 2 > 1").text, u"1 < 2 > 1");
  EXPECT_EQ(Decode(u"a <b").text, u"a <b");
  EXPECT_EQ(Decode(u"<").text, u"<");
  EXPECT_EQ(Decode(u"<!-- open").text, u"<!-- open");
  EXPECT_EQ(Decode(u"<a href=\"x>").text, u"<a href=\"x>");
}

TEST(DecodeMarkup, QuotesDecideWhereAMarkEnds) {
  EXPECT_EQ(Decode(u"<a b=\"x<i c='y>z").text, u"<a b=\"x<i c='y>z");
  EXPECT_EQ(Decode(u"<a b=\"<i c='><u d=\"'>e").text, u"<a b=\"e");
  EXPECT_EQ(Decode(u"it's <b>so</b> \"so\" <i t='>'>it</i> isn't <b").text,
            u"it's so \"so\" it isn't <b");
  EXPECT_EQ(Decode(u"<!-- a --><!-->b<!--").text, u"b<!--");
  EXPECT_EQ(Decode(u"[sound:][sound:a").text, u"[sound:a");
}

TEST(DecodeMarkup, PlainFieldsHaveNoMarksButSounds) {
  EXPECT_EQ(Decode(u"<b>&lt;<br>[sound:a.wav]", false), (DeckSide{u"<b>&lt;<br>", u"a.wav", u""}));
}

TEST(EncodeMarkup, IsReadBack) {
  const DeckSide side{u"a<b> & \"c\"\r\n[sound:no]", u"x]y.wav", u"a\"b.jpg"};
  EXPECT_EQ(EncodeMarkup(side),
            u"a&lt;b&gt; &amp; &quot;c&quot;<br>&#91;sound:no]<img src=\"a&quot;b.jpg\">"
            u"[sound:x&#93;y.wav]");
  EXPECT_EQ(Decode(EncodeMarkup(side)), side);
}

}  // namespace
