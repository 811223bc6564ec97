#pragma once

#include "study/CardDisplay.h"
#include "study/PictureHeader.h"
#include "windows/frame/Announcer.h"
#include "windows/frame/Form.h"
#include "windows/study/StudyWindows.h"

#include <QTimer>

#include <array>
#include <functional>
#include <memory>

class CardField;
class ChooserPanel;
class KeyMenus;
class PictureBox;
class ScrolledText;
class ZoomKeys;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QToolButton;

/// One study session over the stack that was selected when it opened.
class frmStepper : public Form {
  Q_OBJECT

 public:
  frmStepper(SharedState& shared, Platform& platform, StudyWindows& windows, int instanceNumber);

  /// The topic that the window's title names.
  const Text& TopicName() const { return m_topicName; }
  int StackIndex() const { return m_session.stackIndex; }
  void SetStackIndex(int index) { m_session.stackIndex = index; }

 protected:
  void Form_Unload() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Text SizeName() const override { return m_sizeName; }

  void MakeControls();
  void LayOut();
  void LayOutCard();
  QWidget* MakeSpellerRow();
  QWidget* MakeScoreRow();
  void Form_Load();
  QSize OpeningSize() const;

  bool IsSpeller() const { return m_session.mode == StudyMode::Speller; }
  bool IsChooser() const { return m_session.mode == StudyMode::Chooser; }
  const CardStack& Stack() const { return m_shared.Stacks.At(m_session.stackIndex); }
  MediaLookup PictureLookup() const;

  /// @return false when this window was deleted while a message was open
  bool Render();
  void ShowSessionStart();
  void ShowFirstSide();
  void NewQuestion();
  void CheckSpelling();
  void RevealAnswer();
  void AskForRestart();
  void RestartPass();
  void SetSideControls(bool enabled);
  /// Tells those who use a screen reader what has just changed.
  void Say(TextView words);
  /// Gives question, answer, field and choices their topic's fonts, all enlarged alike.
  void ApplyFonts();
  /// What the user does with a control, however it arrives: at once, or when what is under way in
  /// the study windows has ended; a sound above all. Nothing when the control is disabled by then.
  void Act(QWidget* control, std::function<void()> action);
  /// Returns once the picture is on the screen, if there is one.
  /// @return false when this window was closed meanwhile
  bool WaitForPicture();
  /// Plays a card's sound unless sounds are off; text and picture are on the screen before.
  /// @return false when this window was closed meanwhile
  bool PlayCardSound(const Text& name);

  /// What Enter does: it presses the button that has the focus, and Next from the answer field.
  void PressFocused();
  /// Question, answer and choices scroll as if they were one text.
  void ScrollCard(int key);

  void cmdNext_Click();
  void cmdRedo_Click();
  void cmdQuit_Click() { Unload(); }
  void SideOption_Click(int side);
  void ssrSound_Click(int index);
  void optChoice_Click(int index);
  void tmrTimer_Timer();
  void picTop_Failed(PictureFault fault);
  void txtSpell_GotFocus();
  void txtSpell_LostFocus();

  StudyWindows& m_windows;
  Text m_sizeName;  // one for each mode
  StudySession m_session;
  CardDisplay m_display;
  Text m_topicName;
  bool m_open = true;
  TopicSettings m_topic;  // copied at the start: a later topic change leaves this window alone
  std::unique_ptr<RandomSource> m_random;
  int m_questions = 0;  // asked so far
  bool m_soundPlays = false;

  QFrame* sspTop = nullptr;
  QLabel* lblTop = nullptr;
  QLabel* lblBottom = nullptr;
  PictureBox* picTop = nullptr;
  ScrolledText* m_question = nullptr;  // with lblTop
  ScrolledText* m_answer = nullptr;    // with lblBottom
  QWidget* m_answerHalf = nullptr;     // of the card
  QLabel* lblCardCount = nullptr;
  QLabel* lblRight = nullptr;
  QLabel* lblWrong = nullptr;
  std::array<QLabel*, 2> imgPicture{};  // items 4 and 5: the right and the wrong mark
  QRadioButton* ssoFront = nullptr;
  QRadioButton* ssoBack = nullptr;
  std::array<QToolButton*, 2> ssrSound{};
  QLineEdit* txtSpell = nullptr;
  QLabel* lblSpellAnswer = nullptr;
  KeyMenus* m_keyMenus = nullptr;
  ZoomKeys* m_zoom = nullptr;
  ChooserPanel* m_chooser = nullptr;
  QPushButton* cmdNext = nullptr;
  QPushButton* cmdRedo = nullptr;
  QPushButton* cmdQuit = nullptr;
  QTimer* tmrTimer = nullptr;
  Announcer m_announcer{this};
};
