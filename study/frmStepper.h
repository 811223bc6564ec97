#pragma once

#include "shell/Form.h"
#include "study/CardDisplay.h"
#include "study/StudyWindows.h"

#include <QTimer>

#include <array>
#include <memory>

class PictureBox;
class QFrame;
class QLabel;
class QPushButton;
class QRadioButton;
class QToolButton;

/// One study session over the stack that was selected when it opened.
class frmStepper : public Form {
  Q_OBJECT

 public:
  frmStepper(SharedState& shared, Platform& platform, StudyWindows& windows, int instanceNumber);

  int StackIndex() const { return m_session.stackIndex; }
  void SetStackIndex(int index) { m_session.stackIndex = index; }

 protected:
  void Form_Unload() override;

 private:
  void LayOut();
  void Form_Load();
  const CardStack& Stack() const { return m_shared.Stacks.At(m_session.stackIndex); }
  Text Media(const Text& name) const;

  void Render();
  void ShowSessionStart();
  void NewQuestion();
  void RevealAnswer();
  void AskForRestart();
  void RestartPass();
  void SetSideControls(bool enabled);
  void ApplyFonts();

  void cmdNext_Click();
  void cmdRedo_Click();
  void cmdQuit_Click() { Unload(); }
  void SideOption_Click(int side);
  void tmrTimer_Timer();

  StudyWindows& m_windows;
  StudySession m_session;
  CardDisplay m_display;
  TopicSettings m_topic;  // copied at the start: a later topic change leaves this window alone
  std::unique_ptr<RandomSource> m_random;

  QFrame* sspTop;
  QLabel* lblTop;
  QLabel* lblBottom;
  PictureBox* picTop;
  QLabel* lblCardCount;
  QRadioButton* ssoFront;
  QRadioButton* ssoBack;
  std::array<QToolButton*, 2> ssrSound;
  QPushButton* cmdNext;
  QPushButton* cmdRedo;
  QPushButton* cmdQuit;
  QTimer* tmrTimer;
};
