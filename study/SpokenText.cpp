#include "study/SpokenText.h"

#include <algorithm>

namespace {

/// Sentences, one after the other.
class Speech {
 public:
  void Add(TextView sentence) {
    constexpr TextView Ends = u".?!";
    if (!m_words.empty()) m_words += u' ';
    m_words += sentence;
    if (Ends.find(m_words.back()) == TextView::npos) m_words += u'.';
  }

  /// @param text  of a card; nothing is said of an empty one
  void AddText(TextView caption, TextView text) {
    const Text line = OnOneLine(text);
    if (!line.empty()) Add(Text(caption) + u' ' + line);
  }

  Text Words() && { return std::move(m_words); }

 private:
  static Text OnOneLine(TextView text) {
    Text line;
    for (const char16_t unit : text) {
      const bool blank = unit == u' ' || unit == u'\r' || unit == u'\n';
      if (blank && (line.empty() || line.back() == u' ')) continue;
      line += blank ? u' ' : unit;
    }
    return Text(TrimRight(line));
  }

  Text m_words;
};

/// What the mark and the window's fields name as right; empty where the user has just named it.
Text CorrectAnswer(const CardDisplay& display) {
  if (!display.correctAnswer.empty() || display.mark == Mark::Right) return display.correctAnswer;
  for (std::size_t i = 0; i < display.choiceTexts.size(); ++i) {
    if (display.choiceEnabled.at(i)) return display.choiceTexts.at(i);
  }
  return {};
}

}  // namespace

Text SpokenCount(const StudySession& session, const CardStack& stack) {
  return u"Card " + NumberText(session.cardsDone) + u" of " + NumberText(stack.CardCount) + u'.';
}

Text SpokenQuestion(const CardDisplay& display, const StudySession& session,
                    const CardStack& stack) {
  Speech speech;
  speech.Add(SpokenCount(session, stack));
  speech.AddText(u"Question:", display.questionLine);
  if (!display.picture.empty()) speech.Add(u"With a picture.");
  for (std::size_t i = 0; i < display.choiceTexts.size(); ++i) {
    speech.AddText(NumberText(static_cast<int>(i) + 1) + u':', display.choiceTexts.at(i));
  }
  return std::move(speech).Words();
}

Text SpokenAnswer(const CardDisplay& display) {
  Speech speech;
  speech.AddText(u"Answer:", display.answerLine);
  return std::move(speech).Words();
}

Text SpokenCard(const CardDisplay& display) {
  Speech speech;
  speech.AddText(u"Question:", display.questionLine);
  speech.AddText(u"Answer:", display.answerLine);
  return std::move(speech).Words();
}

Text SpokenVerdict(const CardDisplay& display, const StudySession& session) {
  Speech speech;
  speech.Add(display.mark == Mark::Right ? u"Right." : u"Wrong.");
  speech.AddText(u"Correct answer:", CorrectAnswer(display));
  speech.Add(NumberText(session.right) + u" right, " + NumberText(session.wrong) + u" wrong.");
  return std::move(speech).Words();
}
