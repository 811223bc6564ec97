#pragma once

#include "decks/Deck.h"

#include <random>
#include <vector>

/// Decks by chance, the same ones in every run.
class RandomDeck {
 public:
  explicit RandomDeck(unsigned seed) : m_random(seed) {}

  std::size_t Below(std::size_t limit) {
    // std::uniform_int_distribution differs from library to library; this does not.
    return static_cast<std::size_t>(m_random()) % limit;
  }

  /// Texts and media that every format holds as they are.
  Deck Plain(std::size_t mostCards) { return Make(mostCards, PlainPieces, false); }

  /// Everything that is hard to hold: carets, percent signs, media words, blanks and breaks at the
  /// ends, control characters, halves of characters, long texts.
  Deck Odd(std::size_t mostCards) { return Make(mostCards, OddPieces, true); }

 private:
  static inline const std::vector<Text> PlainPieces = {
      u"dog",  u"el perro", u" ",    u"a",   u"ñandú", u"собака", u"犬",     u"\U0001F415", u"\"",
      u"\"\"", u",",        u";",    u"\t",  u"'",     u"&",      u"<b>",    u"&lt;",       u"<",
      u">",    u"#tag",     u"{{}}", u"[",   u"]",     u"\r\n",   u"x\r\nx", u"|",          u":",
      u"=",    u"50 %",     u"wav",  u"a.b", u"—",     u"(",      u"€",      u"Front",      u"\\"};
  static inline const std::vector<Text> OddPieces = {
      u"dog",  u"^",      u"^^",     u"%%",     u"%",      u"%^",     u"  ",        u"\r\n\r\n",
      u"\r\n", u"\r",     u"\n",     u"a.wav",  u"b.BMP",  u"c.jpg ", u".gif",      u"\x01",
      u"\x1A", u"\x7F",   u"\xD800", u"\xDC00", u"\uFEFF", u"\uFFFF", u"[sound:x]", u"[sound:",
      u"<br>", u"<img",   u"\"",     u"\t",     u",",      u"sep=;",  u"#html:",    u"&#0;",
      u"<!--", u"&nbsp;", u"Back",   u"é",      u"\u0081", u"Ж",      u" ",         u"\u00A0"};

  Text Pieces(const std::vector<Text>& pieces, std::size_t most) {
    Text text;
    for (std::size_t count = Below(most + 1); count > 0; --count)
      text += pieces[Below(pieces.size())];
    return text;
  }

  Text PlainText(const std::vector<Text>& pieces) {
    Text text = Pieces(pieces, 8);
    // What a stack file cannot hold.
    while (text.find(u"\r\n\r\n") != Text::npos) text = ReplaceAll(text, u"\r\n\r\n", u"\r\n");
    const auto isSpace = [](char16_t unit) {
      return unit == u' ' || unit == u'\r' || unit == u'\n';
    };
    while (!text.empty() && isSpace(text.back())) text.pop_back();
    while (!text.empty() && isSpace(text.front())) text.erase(0, 1);
    return text;
  }

  Text MediaName(bool odd, bool sound) {
    if (Below(3) != 0) return {};
    static const std::vector<Text> Sounds = {u"perro.wav", u"ñ.WAV", u"犬.wav", u"a-b_1.wav"};
    static const std::vector<Text> Pictures = {u"dog.bmp", u"DOG.JPG", u"犬.gif", u"a&b.jpg"};
    static const std::vector<Text> Odd = {u"my dog.wav", u"dog.png",  u"x/dog.jpg", u"a.wav.bak",
                                          u"a]b.wav",    u"q\"q.bmp", u"a.bmp.jpg", u"\r\n.gif",
                                          u"b.wav.bmp",  u"<.gif",    u".wav"};
    if (odd && Below(3) == 0) return Odd[Below(Odd.size())];
    return sound ? Sounds[Below(Sounds.size())] : Pictures[Below(Pictures.size())];
  }

  Deck Make(std::size_t mostCards, const std::vector<Text>& pieces, bool odd) {
    Deck deck;
    deck.topic = odd ? Pieces(pieces, 3) : Text(u"Spanish");
    deck.description = odd ? Pieces(pieces, 3) : Text(u"Animals, 2nd \"part\"");
    deck.cards.resize(1 + Below(mostCards));
    for (DeckCard& card : deck.cards) {
      for (DeckSide& side : card.sides) {
        side.text = odd ? Pieces(pieces, 5) : PlainText(pieces);
        if (odd && Below(20) == 0) side.text.append(Text(255, u'x')).append(u"\r\ny");
        side.sound = MediaName(odd, true);
        side.picture = MediaName(odd, false);
      }
    }
    return deck;
  }

  std::mt19937 m_random;
};
