#include "windows/authoring/frmEdit.h"

#include "authoring/SpokenSelection.h"
#include "cards/StackFileOperations.h"
#include "program/Zoom.h"
#include "windows/authoring/CardTextBox.h"
#include "windows/authoring/EditMenu.h"
#include "windows/authoring/RowLabel.h"
#include "windows/authoring/SidePanel.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CardField.h"
#include "windows/keys/KeyMenus.h"
#include "windows/keys/ZoomKeys.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"
#include "windows/topics/frmConfig.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QWheelEvent>

frmEdit::frmEdit(SharedState& shared, Platform& platform, QWidget* owner, frmFind& find)
    : Form("frmEdit", shared, platform, owner),
      m_editor(shared.Stacks),
      m_find(find),
      m_announcer(this) {
  MakeRows();
  m_sides = {new SidePanel(Front, shared, platform, this),
             new SidePanel(Back, shared, platform, this)};
  lblCardCount = Add<QLabel>(QStringLiteral("lblCardCount"));
  cmdEdit = Add<QPushButton>(QStringLiteral("cmdEdit"), QStringLiteral("&Edit"));
  cmdAppend = Add<QPushButton>(QStringLiteral("cmdAppend"), QStringLiteral("&Add Cards"));
  cmdDel = Add<QPushButton>(QStringLiteral("cmdDel"), QStringLiteral("&Delete Card"));
  cmdEnd = Add<QPushButton>(QStringLiteral("cmdEnd"), QStringLiteral("&Save/End"));
  cmdCancAll = Add<QPushButton>(QStringLiteral("cmdCancAll"), QStringLiteral("&Cancel"));
  LayOut();
  MakeMenus();
  for (const int side : {Front, Back}) {
    SidePanel* const panel = m_sides[static_cast<std::size_t>(side)];
    connect(panel->Field(), &CardField::LostFocus, this, [this, side] { CommitText(side); });
    connect(panel, &SidePanel::MediaChanged, this,
            [this, side](MediaKind kind, const QString& name) {
              m_editor.CommitMedia(side, kind, ToText(name));
            });
  }
  connect(vsbBar, &QScrollBar::valueChanged, this, &frmEdit::vsbBar_Change);
  connect(cmdEdit, &QPushButton::clicked, this, &frmEdit::cmdEdit_Click);
  connect(cmdAppend, &QPushButton::clicked, this, &frmEdit::cmdAppend_Click);
  connect(cmdDel, &QPushButton::clicked, this, &frmEdit::cmdDel_Click);
  connect(cmdEnd, &QPushButton::clicked, this, &frmEdit::cmdEnd_Click);
  connect(cmdCancAll, &QPushButton::clicked, this, &frmEdit::cmdCancAll_Click);
  Form_Load();
}

void frmEdit::MakeRows() {
  sspListBox = Add<QFrame>(QStringLiteral("sspListBox"));
  ShowListFocus(false);
  sspListBox->setFocusPolicy(Qt::StrongFocus);
  sspListBox->setAccessibleName(QStringLiteral("Cards"));
  sspListBox->setToolTip(
      QStringLiteral("Arrow keys move; Ctrl+Enter in a text goes to the next card"));
  SetAccessibleRole(sspListBox, QAccessible::List);
  sspListBox->installEventFilter(this);
  auto* const sspCol1 = new QFrame(sspListBox);
  auto* const sspCol2 = new QFrame(sspListBox);
  sspCol1->setObjectName(QStringLiteral("sspCol1"));
  sspCol2->setObjectName(QStringLiteral("sspCol2"));
  vsbBar = new QScrollBar(Qt::Vertical, sspListBox);
  vsbBar->setObjectName(QStringLiteral("vsbBar"));
  vsbBar->setFocusPolicy(Qt::TabFocus);
  vsbBar->setAccessibleName(QStringLiteral("Top card"));
  vsbBar->installEventFilter(this);
  const auto fill = [this](QFrame* panel, std::array<RowLabel*, RowsPerPage>& labels,
                           const char* name, int side) {
    panel->setBackgroundRole(QPalette::Base);
    panel->setAutoFillBackground(true);
    auto* const column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (int row = 0; row < RowsPerPage; ++row) {
      auto* const label = new RowLabel(panel);
      label->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(row));
      column->addWidget(label, 1);
      labels[static_cast<std::size_t>(row)] = label;
      connect(label, &RowLabel::Clicked, this, [this, row, side] { Row_Click(row, side); });
      connect(label, &RowLabel::DoubleClicked, this,
              [this, side] { m_sides[static_cast<std::size_t>(side)]->TextBox()->setFocus(); });
    }
  };
  fill(sspCol1, lblCol1, "lblCol1", Front);
  fill(sspCol2, lblCol2, "lblCol2", Back);
  auto* const columns = new QHBoxLayout(sspListBox);
  columns->setContentsMargins(2, 2, 2, 2);
  columns->setSpacing(1);
  columns->addWidget(sspCol1, 1);
  columns->addWidget(sspCol2, 1);
  columns->addWidget(vsbBar);
}

void frmEdit::LayOut() {
  auto* const sspCardCount = Add<QFrame>(QStringLiteral("sspCardCount"));
  auto* const count = new QVBoxLayout(sspCardCount);
  count->setContentsMargins(0, 0, 0, 0);
  count->addWidget(new QLabel(QStringLiteral("Card Count"), sspCardCount));
  count->addWidget(lblCardCount);
  lblCardCount->setAccessibleDescription(QStringLiteral("Position and card count"));
  auto* const buttons = new QVBoxLayout;
  buttons->addWidget(sspCardCount);
  buttons->addStretch();
  for (QPushButton* const button : {cmdEdit, cmdAppend, cmdDel, cmdEnd, cmdCancAll}) {
    buttons->addWidget(button);
  }
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(12);
  grid->addWidget(sspListBox, 0, 0, 1, 2);
  grid->addWidget(m_sides[0], 1, 0);
  grid->addWidget(m_sides[1], 1, 1);
  grid->addLayout(buttons, 0, 2, 2, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  resize(760, 460);
}

void frmEdit::MakeMenus() {
  QMenuBar* const bar = AddMenuBar();
  new EditMenu(bar);
  QMenu* const mnuChange = AddMenu(bar, QStringLiteral("mnuChange"), QStringLiteral("Cha&nge"));
  QAction* const mnuTopic =
      AddItem(mnuChange, QStringLiteral("mnuTopic"), QStringLiteral("&Topic..."));
  QAction* const mnuDesc =
      AddItem(mnuChange, QStringLiteral("mnuDesc"), QStringLiteral("&Description..."));
  QMenu* const mnuSearch = AddMenu(bar, QStringLiteral("mnuSearch"), QStringLiteral("Sea&rch"));
  QAction* const mnuFind =
      AddItem(mnuSearch, QStringLiteral("mnuFind"), QStringLiteral("&Find..."));
  mnuReFind = AddItem(mnuSearch, QStringLiteral("mnuReFind"), QStringLiteral("Find &Next"));
  mnuFind->setShortcut(QKeySequence::Find);
  mnuReFind->setShortcut(QKeySequence::FindNext);
  connect(mnuTopic, &QAction::triggered, this, &frmEdit::mnuTopic_Click);
  connect(mnuDesc, &QAction::triggered, this, &frmEdit::mnuDesc_Click);
  connect(mnuFind, &QAction::triggered, this, &frmEdit::mnuFind_Click);
  connect(mnuReFind, &QAction::triggered, this, &frmEdit::mnuReFind_Click);

  m_zoom = new ZoomKeys(bar, m_platform.state, u"frmEdit", ExactZoom);
  connect(m_zoom, &ZoomKeys::Changed, this, &frmEdit::ApplyFonts);
  m_keyMenus = new KeyMenus(bar, KeyMenuStyle::CardWindow, m_shared.Topic, m_shared, m_platform);
  m_keyMenus->AddSideField(m_sides[0]->Field(), KeySide::Front);
  m_keyMenus->AddSideField(m_sides[1]->Field(), KeySide::Back);
  AddHelp(bar, HelpContext::Edit);
}

void frmEdit::Form_Load() {
  ApplyFonts();
  ShowCaption();
  SetScrollRange();
  mnuReFind->setEnabled(false);
  cmdDel->setEnabled(Stack().CardCount > 0);
  ShowAll();
  sspListBox->setFocus();
}

void frmEdit::ShowCaption() {
  // The name stands in its full width.
  setWindowTitle(TitleText(u"Edit Cards: " + FixedWidth(Stack().StackName, StackNameWidth) +
                           u"  (" + m_shared.Topics.Name(m_shared.Topics.CurrentTopic) + u")"));
}

void frmEdit::ApplyFonts() {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  const QFont front = DisplayFont(fonts.FrontFont, fonts.FrontSize, m_zoom->Factor());
  const QFont back = DisplayFont(fonts.BackFont, fonts.BackSize, m_zoom->Factor());
  m_sides[0]->SetTextFont(front);
  m_sides[1]->SetTextFont(back);
  for (RowLabel* const label : lblCol1) label->setFont(front);
  for (RowLabel* const label : lblCol2) label->setFont(back);
  FillRows();  // the font holds the line through a marked card, too
}

void frmEdit::Form_Activate() { m_keyMenus->Rebuild(); }

void frmEdit::FillRows() {
  for (int row = 0; row < RowsPerPage; ++row) {
    const auto i = static_cast<std::size_t>(row);
    lblCol1[i]->SetCardText(TrimRight(m_editor.RowText(row, Front)));
    lblCol2[i]->SetCardText(TrimRight(m_editor.RowText(row, Back)));
    lblCol1[i]->SetStruckOut(m_editor.IsRowStruckOut(row));
    lblCol2[i]->SetStruckOut(m_editor.IsRowStruckOut(row));
  }
}

void frmEdit::ShowHighlight() {
  for (int row = 0; row < RowsPerPage; ++row) {
    const auto i = static_cast<std::size_t>(row);
    lblCol1[i]->SetHighlighted(row == m_editor.SelRow());
    lblCol2[i]->SetHighlighted(row == m_editor.SelRow());
  }
}

void frmEdit::ShowCard() {
  const CardFields fields = m_editor.ShownFields();
  m_sides[0]->SetContent(fields.sides[0]);
  m_sides[1]->SetContent(fields.sides[1]);
}

void frmEdit::ShowPosition() { lblCardCount->setText(ToQString(m_editor.PositionText())); }

void frmEdit::SetScrollRange() {
  vsbBar->setRange(1, m_editor.ScrollMaximum());
  vsbBar->setPageStep(RowsPerPage);
  vsbBar->setEnabled(m_editor.CanScroll());
}

void frmEdit::ShowAll() {
  const QSignalBlocker quiet(vsbBar);
  vsbBar->setValue(m_editor.TopCard());
  FillRows();
  ShowHighlight();
  ShowCard();
  ShowPosition();
}

void frmEdit::SaySelection() { m_announcer.Say(ToQString(SpokenSelection(m_editor, Stack()))); }

void frmEdit::ShowUnsavableText() {
  const std::optional<CardSide> where = m_editor.UnsavableText();
  if (!where) return;
  m_editor.GoTo(where->card);
  ShowAll();
  CardTextBox* const box = m_sides[static_cast<std::size_t>(where->side)]->TextBox();
  box->setFocus();
  box->SelectFirst(u'^');
}

void frmEdit::CommitText(int side) {
  const Text text = m_sides[static_cast<std::size_t>(side)]->Content().text;
  if (m_editor.CommitText(side, text)) FillRows();
}

void frmEdit::CommitTexts() {
  CommitText(Front);
  CommitText(Back);
}

void frmEdit::Row_Click(int row, int side) {
  if (!m_editor.CanSelectRow(row, side)) return;
  CommitTexts();
  m_editor.SelectRow(row, side);
  ShowAll();
  sspListBox->setFocus();
  SaySelection();
}

void frmEdit::vsbBar_Change(int topCard) {
  CommitTexts();
  m_editor.ScrollTo(topCard);
  ShowAll();
  SaySelection();
}

void frmEdit::MoveSelection(int rows) {
  CommitTexts();
  m_editor.MoveSelection(rows);
  ShowAll();
  SaySelection();
}

void frmEdit::cmdEdit_Click() {
  // A front of nothing but the blanks that a load adds is not empty.
  const bool shown = m_editor.SelRow() >= 0 && !Stack().SideText(m_editor.CurCard(), Front).empty();
  if (shown || !m_sides[0]->Content().text.empty()) m_sides[0]->TextBox()->setFocus();
}

void frmEdit::cmdAppend_Click() {
  CommitTexts();
  const BusyPointer busy;
  m_shared.Switches.AddCardsMode = true;
  frmCreate(m_shared, m_platform, this).ShowModal();
  m_shared.Switches.AddCardsMode = false;
  SetScrollRange();
  m_editor.CardsAppended();
  ShowAll();
  cmdDel->setEnabled(true);
}

void frmEdit::cmdDel_Click() {
  CommitTexts();
  m_editor.ToggleDeleted();
  FillRows();
  SaySelection();
}

void frmEdit::cmdEnd_Click() {
  if (!SaveCards()) return;
  m_noSavePrompt = true;
  Unload();
}

void frmEdit::cmdCancAll_Click() {
  CommitTexts();
  const Answer answer = m_platform.prompts.Show({.text = u"Changes will not be saved to disk.\r\n"
                                                         u"Are you sure you want to cancel?",
                                                 .icon = PromptIcon::Exclamation,
                                                 .buttons = PromptButtons::YesNo});
  if (answer != Answer::Yes) return;
  m_noSavePrompt = true;
  Unload();
}

bool frmEdit::Form_QueryUnload(UnloadCause) {
  if (m_noSavePrompt) return true;
  CommitTexts();
  const Answer answer = m_platform.prompts.Show({.text = u"Changes will not be saved to disk.\r\n"
                                                         u"Do you wish to save changes?",
                                                 .icon = PromptIcon::Exclamation,
                                                 .buttons = PromptButtons::YesNo});
  if (answer == Answer::Yes) (void)SaveCards();  // the editor closes, saved or not
  return true;
}

bool frmEdit::SaveCards() {
  CommitTexts();
  const BusyPointer busy;
  StackStore& stacks = m_shared.Stacks;
  stacks.StackFileNumber.reset();
  const Text oldName = Stack().StackName;
  m_shared.Switches.FileDialogMode = FileDialogMode::SaveEdited;
  frmLoad(m_shared, m_platform, this).ShowModal();
  if (ProbeStackFile(stacks, m_platform.files) != FileStatus::FileAlreadyOpen) return false;
  const FileStatus status = m_editor.Save();
  if (status == FileStatus::Ok) return true;
  Stack().StackName = oldName;
  m_platform.prompts.Show(m_editor.SaveErrorPrompt(status));
  if (status == FileStatus::Overflow) ShowUnsavableText();
  return false;
}

void frmEdit::mnuFind_Click() {
  CommitTexts();
  const BusyPointer busy;
  m_shared.Switches.FoundCard = 0;
  m_find.ShowForSearch();
  mnuReFind->setEnabled(m_shared.Switches.FoundCard >= 1);
  ShowFound();
}

void frmEdit::mnuReFind_Click() {
  CommitTexts();
  m_find.FindNext();
  ShowFound();
}

void frmEdit::ShowFound() {
  if (m_shared.Switches.FoundCard < 1) return;
  m_editor.GoTo(m_shared.Switches.FoundCard);
  ShowAll();
  SaySelection();
}

void frmEdit::mnuTopic_Click() {
  CommitTexts();
  TopicList& topics = m_shared.Topics;
  if (!frmConfig::ShowToChange(m_shared, m_platform, this)) return;
  // Also where it is the selected topic already: the stack's own may be another.
  Stack().TopicIndex = topics.CurrentTopic;
  if (HoldsCurrentTopic(topics, m_shared.Topic)) return;
  SelectTopic(topics, m_shared.Topic, m_platform.profile, topics.CurrentTopic);
  emit TopicChanged();
  ShowCaption();
  ApplyFonts();
  m_keyMenus->Rebuild();
  ShowAll();
}

void frmEdit::mnuDesc_Click() {
  CommitTexts();
  const BusyPointer busy;
  m_shared.Switches.NewDescription = false;
  frmDesc(m_shared, m_platform, this).ShowModal();
}

/// The rows that a key moves the selection by; 0 for any other key.
int frmEdit::RowsMovedBy(int key) {
  switch (key) {
    case Qt::Key_Up:
      return -1;
    case Qt::Key_Down:
      return 1;
    case Qt::Key_PageUp:
      return -RowsPerPage;
    case Qt::Key_PageDown:
      return RowsPerPage;
    case Qt::Key_Home:
      return -MaxCards;
    case Qt::Key_End:
      return MaxCards;
    default:
      return 0;
  }
}

/// The list is moved through from the buttons too: one card after the other can be struck out.
void frmEdit::keyPressEvent(QKeyEvent* event) {
  const bool inRows = sspListBox->hasFocus();
  const bool onButton = qobject_cast<QPushButton*>(focusWidget()) != nullptr;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool control = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
  if (enter && control && qobject_cast<CardTextBox*>(focusWidget()) != nullptr) {
    MoveSelection(1);
  } else if (const int rows = RowsMovedBy(event->key()); rows != 0) {
    if (inRows || onButton) MoveSelection(rows);
  } else if (inRows && enter) {
    cmdEdit_Click();
  } else {
    Form::keyPressEvent(event);
  }
}

/// The focus must be seen although the list is no ordinary control; nothing moves by it.
void frmEdit::ShowListFocus(bool focused) {
  const int width = sspListBox->frameWidth();
  const int style = focused
                        ? static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain)
                        : static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken);
  sspListBox->setFrameStyle(style);
  sspListBox->setLineWidth(width);
  sspListBox->setForegroundRole(focused ? QPalette::Highlight : QPalette::WindowText);
}

/// A row for each notch; what a touch pad sends of one adds up.
void frmEdit::TurnWheel(int delta) {
  constexpr int Notch = 120;
  m_wheel += delta;
  const int rows = m_wheel / Notch;
  m_wheel -= rows * Notch;
  if (vsbBar->isEnabled()) vsbBar->setValue(vsbBar->value() - rows);
}

bool frmEdit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && (watched == vsbBar || watched == sspListBox)) {
    TurnWheel(static_cast<QWheelEvent*>(event)->angleDelta().y());
    event->accept();
    return true;
  }
  if (watched == vsbBar && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (enter && m_editor.SelRow() >= 0) Row_Click(m_editor.SelRow(), Front);
    if (enter) return true;
  }
  if (watched == sspListBox && event->type() == QEvent::FocusIn) ShowListFocus(true);
  if (watched == sspListBox && event->type() == QEvent::FocusOut) ShowListFocus(false);
  return Form::eventFilter(watched, event);
}
