#include "decks/XmlReader.h"

#include <gtest/gtest.h>

namespace {

/// The events of a document, a line for each; pieces of a text are put together.
std::string Events(std::string_view document) {
  XmlReader xml(document);
  std::string events;
  bool inText = false;
  while (true) {
    const XmlReader::Event event = xml.Next();
    if (event != XmlReader::Event::Words && inText) events += "|";
    inText = event == XmlReader::Event::Words;
    switch (event) {
      case XmlReader::Event::Start:
        events.append("<").append(xml.Name());
        xml.ForEachAttribute([&](std::string_view name, const std::string& value) {
          events.append(" ").append(name).append("=").append(value);
        });
        events += ">";
        break;
      case XmlReader::Event::End:
        events.append("</").append(xml.Name()).append(">");
        break;
      case XmlReader::Event::Words:
        events += xml.Piece();
        break;
      case XmlReader::Event::Done:
        EXPECT_EQ(xml.Next(), XmlReader::Event::Done);
        return events;
      case XmlReader::Event::Broken:
        EXPECT_EQ(xml.Next(), XmlReader::Event::Broken);
        return std::to_string(xml.Line()) + ": " + xml.Problem();
    }
  }
}

TEST(XmlReader, Elements) {
  EXPECT_EQ(Events("<a><b/>x<c d='1' e = \"2>\"\n/></a >"), "<a><b></b>x|<c d=1 e=2>></c></a>");
  EXPECT_EQ(Events("<?xml version='1.0'?>\n<!-- > --><!DOCTYPE a [ <!ENTITY b '\"]>'> ]>\n<a/>\n"),
            "<a></a>");
  EXPECT_EQ(Events("<a b='&lt;&quot;&#65;&x;'/>"), "<a b=<\"A&x;></a>");
}

TEST(XmlReader, TextsOfManyPieces) {
  EXPECT_EQ(Events("<a>1&amp;2<![CDATA[<3>]]]]><!--x-->4<?y z?>5]]></a>"), "<a>1&2<3>]]45]]>|</a>");
  EXPECT_EQ(Events("<a>&#x1F415;&#233;&apos;</a>"), "<a>\U0001F415é'|</a>");
}

TEST(XmlReader, SaysWhatIsNotInOrderAndWhere) {
  EXPECT_EQ(Events(""), "1: it has no element");
  EXPECT_EQ(Events("words"), "1: something stands before the first element");
  EXPECT_EQ(Events("<a/>\n<b/>"), "2: something stands behind the last element");
  EXPECT_EQ(Events("<a>\n<b>\n</a>"), "3: the element “b” ends as “a”");
  EXPECT_EQ(Events("<a>\n<b>"), "2: the element “b” has no end");
  EXPECT_EQ(Events("<a></a></a>"), "1: something stands behind the last element");
  EXPECT_EQ(Events("</a>"), "1: nothing is open that “a” could end");
  EXPECT_EQ(Events("<a>1 < 2</a>"), "1: “<” begins nothing; in a text it is written “&lt;”");
  for (const char* const mark :
       {"<a", "<a b>", "<a b=c>", "<a b='c>", "<a b='c'd='e'/>", "<a /b>"}) {
    EXPECT_EQ(Events(mark), "1: the mark of the element “a” is not in order") << mark;
  }
  EXPECT_EQ(Events("<a><!-- </a>"), "1: a comment has no end");
  EXPECT_EQ(Events("<a><![CDATA[ ]]</a>"), "1: “<![CDATA[” has no end");
  EXPECT_EQ(Events("<a><? </a>"), "1: what “<?” begins has no end");
  EXPECT_EQ(Events("<!DOCTYPE a [ > <a/>"), "1: the document type has no end");
}

TEST(XmlReader, LevelsHaveALimitAndTakeNoCallsInCalls) {
  const auto nested = [](std::size_t levels) {
    std::string document;
    for (std::size_t i = 0; i < levels; ++i) document += "<a>";
    for (std::size_t i = 0; i < levels; ++i) document += "</a>";
    return document;
  };
  EXPECT_EQ(Events(nested(XmlReader::MostLevels)).size(), 7 * XmlReader::MostLevels);
  EXPECT_EQ(Events(nested(XmlReader::MostLevels + 1)),
            "1: more than 250000 elements in one another");
}

TEST(XmlReader, DeclarationsAreSkippedAndSaid) {
  XmlReader xml("\n<!DOCTYPE a SYSTEM 'x' [\n<!ENTITY b 'c'>]><a>&b;</a>");
  while (xml.Next() != XmlReader::Event::Done) continue;
  EXPECT_EQ(xml.DeclarationsLine(), 2);
  EXPECT_EQ(xml.UnresolvedReferences().count, 1);
  EXPECT_EQ(xml.UnresolvedReferences().line, 3);
  EXPECT_EQ(xml.UnresolvedReferences().first, "“&b;”");
}

}  // namespace
