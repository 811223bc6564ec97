#include "keys/frmAddKey.h"

#include "base/AccessibleRole.h"
#include "base/FocusMove.h"
#include "base/QtText.h"
#include "keys/CharacterList.h"
#include "keys/KeyNames.h"
#include "keys/KeyPickers.h"
#include "keys/VirtualKeys.h"
#include "keys/frmMoreKeys.h"
#include "settings/DisplayFont.h"
#include "shell/Pointer.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// A row's label, which shows when it has the focus.
class RowLabel : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.state |= QStyle::State_KeyboardFocusChange;  // also when a click brought the focus
    option.backgroundColor = palette().color(backgroundRole());
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, option);
  }
};

/// Like the inside of a list.
void UseWindowColours(QWidget* widget) {
  widget->setAutoFillBackground(true);
  widget->setBackgroundRole(QPalette::Base);
  widget->setForegroundRole(QPalette::Text);
}

bool IsEnter(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent*>(event)->key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

frmAddKey::frmAddKey(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmAddKey", shared, platform, owner),
      m_newTopic(shared.Switches.NewTopicMode),
      m_topicName(m_newTopic ? shared.Switches.NewTopicName
                             : shared.Topics.Name(shared.Topics.CurrentTopic)),
      m_editing(m_newTopic ? KeyTable() : shared.Topic.Keys),
      sspKeyAss(Add<QGroupBox>(QStringLiteral("sspKeyAss"), QStringLiteral("Key Assignments:"))),
      sspCol1(Add<QFrame>(QStringLiteral("sspCol1"))),
      sspCol2(Add<QFrame>(QStringLiteral("sspCol2"))),
      lblCol1(),
      lblCol2(),
      vsbBar(Add<QScrollBar>(QStringLiteral("vsbBar"), Qt::Vertical)),
      sspSides(Add<QFrame>(QStringLiteral("sspSides"))),
      sscFront(Add<QCheckBox>(QStringLiteral("sscFront"), QStringLiteral("Front"))),
      sscBack(Add<QCheckBox>(QStringLiteral("sscBack"), QStringLiteral("Back"))),
      sspAddKey(Add<QGroupBox>(QStringLiteral("sspAddKey"), QStringLiteral("Add Key:"))),
      lstAddKey(Add<CharacterList>(QStringLiteral("lstAddKey"))),
      sspAscCode(Add<QLabel>(QStringLiteral("sspAscCode"))),
      sspControlKey(
          Add<QGroupBox>(QStringLiteral("sspControlKey"), QStringLiteral("Control Keys:"))),
      sspControlOutline(Add<QFrame>(QStringLiteral("sspControlOutline"))),
      cboControlKey(Add<QComboBox>(QStringLiteral("cboControlKey"))),
      cmdAction(Add<QPushButton>(QStringLiteral("cmdAction"))),
      cmdMore(Add<QPushButton>(QStringLiteral("cmdMore"), QStringLiteral("More"))),
      cmdCancel(Add<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"))),
      cmdDone(Add<QPushButton>(QStringLiteral("cmdDone"), QStringLiteral("Done"))) {
  MakeRows();
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::AddKey);
  connect(sscFront, &QCheckBox::clicked, this, [this] { sscSide_Click(sscFront, sscBack); });
  connect(sscBack, &QCheckBox::clicked, this, [this] { sscSide_Click(sscBack, sscFront); });
  connect(lstAddKey, &QListWidget::itemSelectionChanged, this, &frmAddKey::lstAddKey_Click);
  connect(lstAddKey, &QListWidget::itemClicked, this, &frmAddKey::lstAddKey_Click);
  connect(lstAddKey, &QListWidget::itemDoubleClicked, this, [this] { cboControlKey->setFocus(); });
  connect(cboControlKey, &QComboBox::activated, this, &frmAddKey::cboControlKey_Click);
  connect(vsbBar, &QScrollBar::valueChanged, this, &frmAddKey::vsbBar_Change);
  connect(cmdAction, &QPushButton::clicked, this, &frmAddKey::cmdAction_Click);
  connect(cmdMore, &QPushButton::clicked, this, &frmAddKey::cmdMore_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmAddKey::cmdCancel_Click);
  connect(cmdDone, &QPushButton::clicked, this, &frmAddKey::cmdDone_Click);
  Form_Load();
}

void frmAddKey::MakeRows() {
  for (int row = 0; row < ShownKeyRows; ++row) {
    const auto at = static_cast<std::size_t>(row);
    lblCol1[at] = Add<QLabel>(QStringLiteral("lblCol1(%1)").arg(row));
    lblCol2[at] = Add<RowLabel>(QStringLiteral("lblCol2(%1)").arg(row));
    lblCol1[at]->setAlignment(Qt::AlignCenter);
    lblCol2[at]->setIndent(6);
    lblCol1[at]->setFocusProxy(lblCol2[at]);
    SetAccessibleRole(lblCol2[at], QAccessible::ListItem);
    for (QLabel* const label : {lblCol1[at], lblCol2[at]}) {
      UseWindowColours(label);
      label->installEventFilter(this);
    }
  }
  SetRowSizes();
}

void frmAddKey::SetRowSizes() {
  // All rows are equally high, whatever their characters: the two columns stand side by side.
  int height = QFontMetrics(font()).height();
  int width = QFontMetrics(font()).horizontalAdvance(QStringLiteral("MMM"));
  const int highest = 4 * height;
  for (const KeyFont keyFont : {KeyFont::Front, KeyFont::Back, KeyFont::Default}) {
    const QFontMetrics metrics(FontFor(keyFont));
    height = std::max(height, metrics.height());
    width = std::max(width, metrics.horizontalAdvance(QStringLiteral("MM")));
  }
  height = std::min(height, highest) + 6;
  for (std::size_t at = 0; at < lblCol1.size(); ++at) {
    lblCol1[at]->setMinimumSize(std::min(width, 3 * highest), height);
    lblCol2[at]->setMinimumHeight(height);
    for (QLabel* const label : {lblCol1[at], lblCol2[at]}) {
      label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    }
  }
  const QFontMetrics metrics(font());
  sspCol2->setMinimumWidth(metrics.horizontalAdvance(QStringLiteral("[F] Shift+Ctrl+Alt+WW")) + 12);
  cmdAction->setMinimumWidth(
      metrics.horizontalAdvance(QStringLiteral("DELETE - 0000 = [F] Shift+Ctrl+Alt+W")) + 32);
}

void frmAddKey::LayOut() {
  auto* const sides = new QHBoxLayout(sspSides);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->addWidget(sscFront);
  sides->addWidget(sscBack);
  sides->addStretch();
  auto* const newKey = new QVBoxLayout;
  newKey->addWidget(sspSides);
  newKey->addWidget(LayOutCharacters(), 1);
  newKey->addWidget(LayOutKeystroke());
  auto* const top = new QHBoxLayout;
  top->setSpacing(12);
  top->addWidget(LayOutAssignments(), 1);
  top->addLayout(newKey, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(cmdAction, 1);
  buttons->addSpacing(12);
  for (QPushButton* const button : {cmdMore, cmdCancel, cmdDone}) buttons->addWidget(button);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(12);
  column->addLayout(top, 1);
  column->addLayout(buttons);
  SetNames();
  // The display stands last: what follows the action button gets the focus when that is disabled.
  SetTabOrder({sscFront, sscBack, lstAddKey, cboControlKey, cmdAction, cmdMore, cmdCancel, cmdDone,
               lblCol2[0], vsbBar});
}

QWidget* frmAddKey::LayOutAssignments() {
  for (QFrame* const panel : {sspCol1, sspCol2}) {
    UseWindowColours(panel);
    panel->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    const auto& labels = panel == sspCol1 ? lblCol1 : lblCol2;
    auto* const rows = new QVBoxLayout(panel);
    rows->setContentsMargins(1, 1, 1, 1);
    rows->setSpacing(0);
    for (QLabel* const label : labels) rows->addWidget(label, 1);
  }
  vsbBar->setFocusPolicy(Qt::TabFocus);
  vsbBar->installEventFilter(this);
  auto* const display = new QHBoxLayout(sspKeyAss);
  display->setSpacing(2);
  display->addWidget(sspCol1);
  display->addWidget(sspCol2, 1);
  display->addWidget(vsbBar);
  return sspKeyAss;
}

QWidget* frmAddKey::LayOutCharacters() {
  lstAddKey->setUniformItemSizes(true);
  lstAddKey->setMinimumHeight(80);
  lstAddKey->installEventFilter(this);
  sspAscCode->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                            static_cast<int>(QFrame::Sunken));
  sspAscCode->setAlignment(Qt::AlignCenter);
  sspAscCode->setMargin(4);
  auto* const row = new QHBoxLayout(sspAddKey);
  row->addWidget(lstAddKey, 1);
  row->addWidget(sspAscCode, 0, Qt::AlignTop);
  return sspAddKey;
}

QWidget* frmAddKey::LayOutKeystroke() {
  cboControlKey->setEditable(true);
  cboControlKey->setInsertPolicy(QComboBox::NoInsert);
  cboControlKey->setCompleter(nullptr);
  cboControlKey->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  // Keys come to the box itself, mouse clicks to the field inside.
  cboControlKey->installEventFilter(this);
  cboControlKey->lineEdit()->installEventFilter(this);
  // It stands elsewhere in the order of Tab than its box; Shift+Tab would come to it there.
  cboControlKey->lineEdit()->setFocusPolicy(Qt::ClickFocus);
  UseWindowColours(sspControlOutline);
  auto* const outline = new QVBoxLayout(sspControlOutline);
  outline->setContentsMargins(0, 0, 0, 0);
  outline->addWidget(cboControlKey);
  auto* const panel = new QVBoxLayout(sspControlKey);
  panel->addWidget(sspControlOutline);
  return sspControlKey;
}

void frmAddKey::SetNames() {
  vsbBar->setAccessibleName(QStringLiteral("Scroll the key assignments"));
  lstAddKey->setAccessibleName(QStringLiteral("Character"));
  sspAscCode->setAccessibleDescription(QStringLiteral("Code of the character"));
  sspAscCode->setToolTip(QStringLiteral("The character's code"));
  for (QWidget* const box :
       std::initializer_list<QWidget*>{cboControlKey, cboControlKey->lineEdit()}) {
    box->setAccessibleName(QStringLiteral("Keystroke"));
  }
  cboControlKey->setToolTip(QStringLiteral("Choose a keystroke, or press it here"));
  sscFront->setToolTip(QStringLiteral("The new key is for the fronts of cards"));
  sscBack->setToolTip(QStringLiteral("The new key is for the backs of cards"));
  cmdMore->setToolTip(QStringLiteral("Choose the character from a chart of all codes"));
  cmdCancel->setToolTip(QStringLiteral("Choose nothing; assignments stay as they are"));
}

void frmAddKey::FillLists() {
  for (const CharCode code : m_characters) lstAddKey->addItem(QString(QChar(CharOfCode(code))));
  for (const Text& keystroke : KeystrokeSuggestions()) {
    cboControlKey->addItem(ToQString(keystroke));
  }
}

void frmAddKey::Form_Load() {
  setWindowTitle(QStringLiteral("Key Assignments - ") + ToQString(m_topicName));
  sscFront->setChecked(true);
  sscBack->setChecked(true);
  m_ascCode = u"0000";
  sspAscCode->setText(ToQString(m_ascCode));
  SetListFont();
  FillLists();
  ShowScroll(ScrollAtStart(m_editing.WorkCount()));
  cmdCancel_Click();
  sscFront->setFocus();
}

bool frmAddKey::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lstAddKey && event->type() == QEvent::FocusIn &&
      IsFocusMove(*static_cast<QFocusEvent*>(event))) {
    lstAddKey_GotFocus();
  }
  if (watched == vsbBar && IsEnter(event)) {
    vsbBar_Enter();
    return true;
  }
  const bool keystrokeBox = watched == cboControlKey || watched == cboControlKey->lineEdit();
  if (keystrokeBox && FilterKeystrokeBox(event)) return true;
  const int row = RowOf(watched);
  if (row >= 0 && FilterRow(row, event)) return true;
  return Form::eventFilter(watched, event);
}

bool frmAddKey::FilterKeystrokeBox(QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      if (!IsAssignableKey(VirtualKeyOf(key), ShiftStateOf(key))) return false;
      event->accept();  // before a menu or another shortcut takes it
      return true;
    }
    case QEvent::KeyPress: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      return cboControlKey_KeyDown(key) || cboControlKey_KeyPress(key);
    }
    case QEvent::InputMethod:
      return !TakesTypedCharacters(m_caption) &&
             !static_cast<QInputMethodEvent*>(event)->commitString().isEmpty();
    case QEvent::MouseButtonDblClick:
      cmdAction->setFocus();
      return true;
    default:
      return false;
  }
}

bool frmAddKey::cboControlKey_KeyDown(const QKeyEvent& event) {
  const int keyCode = VirtualKeyOf(event);
  const int shift = ShiftStateOf(event);
  if (!IsAssignableKey(keyCode, shift)) return false;
  const QString keystroke = ToQString(PressedKeyText(keyCode, shift));
  // Were the text an entry that is not the current one, leaving the box would choose it again.
  cboControlKey->setCurrentIndex(cboControlKey->findText(keystroke, Qt::MatchExactly));
  cboControlKey->setEditText(keystroke);
  OfferKeystroke();
  return true;
}

bool frmAddKey::cboControlKey_KeyPress(const QKeyEvent& event) const {
  // Tab has to move the focus, and Delete is no character here.
  const int key = event.key();
  if (event.text().isEmpty() || key == Qt::Key_Tab || key == Qt::Key_Backtab ||
      key == Qt::Key_Delete) {
    return false;
  }
  // The toolkit would type the letter of an Alt keystroke.
  return ShiftStateOf(event) > ShiftModifier || !TakesTypedCharacters(m_caption);
}

void frmAddKey::cboControlKey_Click(int index) {
  if (index >= 0) OfferKeystroke();
}

void frmAddKey::OfferKeystroke() {
  cmdAction->setEnabled(true);
  ShowAction(AddCaption(m_ascCode, ToText(cboControlKey->currentText())));
}

bool frmAddKey::FilterRow(int row, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return true;  // so that the release comes here as well
    case QEvent::MouseButtonRelease: {
      const auto& mouse = *static_cast<QMouseEvent*>(event);
      const QRect label(QPoint(), lblCol2[static_cast<std::size_t>(row)]->size());
      if (mouse.button() == Qt::LeftButton && label.contains(mouse.position().toPoint())) {
        lblCol2_Click(row);
      }
      return true;
    }
    case QEvent::Wheel:
      return QApplication::sendEvent(vsbBar, event);
    case QEvent::KeyPress:
      return lblCol2_KeyDown(row, *static_cast<QKeyEvent*>(event));
    default:
      return false;
  }
}

int frmAddKey::RowOf(const QObject* label) const {
  for (std::size_t at = 0; at < lblCol1.size(); ++at) {
    if (label == lblCol1[at] || label == lblCol2[at]) return static_cast<int>(at);
  }
  return -1;
}

void frmAddKey::lblCol2_Click(int row) {
  const std::optional<KeyAssignment> assignment = m_editing.Assignment(m_scroll.value + row);
  if (!assignment) return;
  HighlightRow(row);
  ClearCharacter();
  ClearKeystroke();
  ShowAction(DeleteCaption(*assignment));
  cmdAction->setEnabled(true);
  cboControlKey->setEnabled(false);
  cmdAction->setFocus();
}

bool frmAddKey::lblCol2_KeyDown(int row, const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Up:
      MoveToRow(row - 1);
      return true;
    case Qt::Key_Down:
      MoveToRow(row + 1);
      return true;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      lblCol2_Click(row);
      return true;
    default:
      return false;
  }
}

void frmAddKey::MoveToRow(int row) {
  if (!m_editing.Assignment(m_scroll.value + row)) return;
  const int shown = std::clamp(row, 0, ShownKeyRows - 1);
  vsbBar->setValue(m_scroll.value + row - shown);
  lblCol2[static_cast<std::size_t>(shown)]->setFocus();
}

void frmAddKey::sscSide_Click(QCheckBox* box, QCheckBox* other) {
  if (!other->isChecked()) box->setChecked(true);
  SetListFont();
  ShowKeyRows(m_scroll.value);
}

void frmAddKey::lstAddKey_GotFocus() {
  ClearKeystroke();
  cmdAction->setEnabled(false);
  HighlightRow(-1);
  sspControlKey->setEnabled(true);
  cboControlKey->setEnabled(true);
}

void frmAddKey::lstAddKey_Click() {
  const std::optional<CharCode> character = ChosenCharacter();
  if (!character) return;
  m_ascCode = CodeText(*character);
  sspAscCode->setText(ToQString(m_ascCode));
  ShowAction(AddCaption(m_ascCode, u""));
}

void frmAddKey::vsbBar_Change(int value) {
  m_scroll.value = value;
  if (m_selectedRow >= 0) cmdAction->setEnabled(false);  // its row is no longer highlighted
  HighlightRow(-1);
  ShowKeyRows(value);
}

void frmAddKey::vsbBar_Enter() {
  if (m_selectedRow < 0) lblCol2_Click(0);
}

void frmAddKey::cmdAction_Click() {
  switch (ActionOf(m_caption)) {
    case KeyAction::Add:
      AddKeyAssignment();
      break;
    case KeyAction::Delete:
      DeleteKeyAssignment();
      break;
    case KeyAction::None:
      break;
  }
}

void frmAddKey::AddKeyAssignment() {
  switch (m_editing.Add(ToText(cboControlKey->currentText()), Sides(), ChosenCharacter())) {
    case AddKeyResult::Added:
      ShowScroll(ScrollAfterAdd(m_scroll, m_editing.WorkCount()));
      break;
    case AddKeyResult::TooMany:
      m_platform.prompts.Show(TooManyKeysPrompt());
      break;
    case AddKeyResult::Exists:
      m_platform.prompts.Show(KeyExistsPrompt());
      break;
    case AddKeyResult::Incomplete:
      break;
  }
  cmdCancel_Click();
}

void frmAddKey::DeleteKeyAssignment() {
  const bool deleted = m_selectedRow >= 0 && m_editing.Delete(m_scroll.value + m_selectedRow);
  if (deleted) ShowScroll(ScrollAfterDelete(m_scroll, m_editing.WorkCount()));
  cmdCancel_Click();
}

void frmAddKey::cmdMore_Click() {
  const BusyPointer busy;
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  const KeySide side = ListFontName() == fonts.BackFont ? KeySide::Back : KeySide::Front;
  m_shared.Switches.KeyCodeToSend = PickerRequest(side);
  frmMoreKeys(m_shared, m_platform, this, fonts).ShowModal();
  if (m_shared.Switches.KeyCodeToSend < 0) return;
  // The list may get the focus only when this window is active again.
  lstAddKey->setFocus();
  lstAddKey_GotFocus();
  SelectCharacter(m_shared.Switches.KeyCodeToSend);
}

void frmAddKey::SelectCharacter(int code) {
  const auto* const found =
      std::find(m_characters.begin(), m_characters.end(), static_cast<CharCode>(code));
  if (found == m_characters.end()) return;
  lstAddKey->setCurrentRow(static_cast<int>(found - m_characters.begin()));
  lstAddKey_Click();  // also when it was selected before
}

void frmAddKey::cmdCancel_Click() {
  cmdAction->setEnabled(false);
  ShowAction(Text(NoActionCaption));
  ClearCharacter();
  ClearKeystroke();
  sspControlKey->setEnabled(false);
  cboControlKey->setEnabled(false);
  HighlightRow(-1);
}

void frmAddKey::Form_Unload() {
  if (m_newTopic) {
    AskAndAddTopic();
  } else if (m_editing.Changed()) {
    AskAndSaveKeys();
  }
  SetPointer(PointerShape::Busy);  // the caller restores it
}

bool frmAddKey::SaveTopic(const KeyTable& keys) {
  if (SaveTopicAndKeys(m_platform.profile, m_shared.Topics, TrimRight(m_topicName),
                       m_shared.Topic.Fonts, keys)) {
    return true;
  }
  m_platform.prompts.Show(TooManyTopicsPrompt());
  return false;
}

void frmAddKey::AskAndSaveKeys() {
  if (m_platform.prompts.Show(SaveKeysPrompt(m_topicName)) != Answer::Yes) return;
  const KeyTable keys = m_editing.AcceptedKeys();
  if (SaveTopic(keys)) m_shared.Topic.Keys = keys;
}

void frmAddKey::AskAndAddTopic() {
  const Answer answer = m_platform.prompts.Show(AddTopicAndKeysPrompt(m_topicName));
  // Who opened this window selects the new topic, and so reads its keys.
  if (answer == Answer::Yes && SaveTopic(m_editing.AcceptedKeys())) {
    LoadTopicList(m_shared.Topics, m_platform.profile);
  }
  m_shared.Switches.NewTopicName.clear();
}

void frmAddKey::ShowScroll(KeyScroll scroll) {
  m_scroll = scroll;
  const QSignalBlocker blocker(vsbBar);
  vsbBar->setRange(1, scroll.maximum);
  vsbBar->setPageStep(ShownKeyRows);
  vsbBar->setValue(scroll.value);
  vsbBar->setEnabled(scroll.enabled);
  HighlightRow(-1);
  ShowKeyRows(scroll.value);
}

void frmAddKey::ShowKeyRows(int top) {
  for (int row = 0; row < ShownKeyRows; ++row) ShowKeyRow(row, m_editing.Assignment(top + row));
}

void frmAddKey::ShowKeyRow(int row, const std::optional<KeyAssignment>& assignment) {
  QLabel* const character = lblCol1[static_cast<std::size_t>(row)];
  QLabel* const keystroke = lblCol2[static_cast<std::size_t>(row)];
  if (!assignment) {
    character->clear();
    keystroke->clear();
    keystroke->setAccessibleName(QStringLiteral("Empty row"));
    if (keystroke->hasFocus()) lblCol2[0]->setFocus();
    keystroke->setFocusPolicy(Qt::NoFocus);
    return;
  }
  const bool control = IsControlCode(assignment->character);
  character->setFont(control ? font() : FontFor(FontOfAssignment(*assignment, Sides())));
  character->setText(control ? ToQString(InvisibleName(assignment->character))
                             : QString(QChar(CharOfCode(assignment->character))));
  keystroke->setText(ToQString(KeyRowText(*assignment)));
  keystroke->setAccessibleName(ToQString(KeyAssignmentListText(*assignment)));
  // Tab comes to the first row, the arrow keys to the others.
  keystroke->setFocusPolicy(row == 0 ? Qt::StrongFocus : Qt::ClickFocus);
}

void frmAddKey::HighlightRow(int row) {
  const auto colour = [this](int which, QPalette::ColorRole back, QPalette::ColorRole text) {
    if (which < 0) return;
    for (QLabel* const label :
         {lblCol1[static_cast<std::size_t>(which)], lblCol2[static_cast<std::size_t>(which)]}) {
      label->setBackgroundRole(back);
      label->setForegroundRole(text);
    }
  };
  colour(m_selectedRow, QPalette::Base, QPalette::Text);
  m_selectedRow = row;
  colour(m_selectedRow, QPalette::Highlight, QPalette::HighlightedText);
}

void frmAddKey::ShowAction(Text caption) {
  m_caption = std::move(caption);
  cmdAction->setText(EscapeMnemonics(m_caption));
}

void frmAddKey::ClearCharacter() {
  lstAddKey->clearSelection();
  lstAddKey->setCurrentRow(-1);
}

void frmAddKey::ClearKeystroke() {
  cboControlKey->setCurrentIndex(-1);
  cboControlKey->clearEditText();
}

void frmAddKey::SetListFont() {
  const auto size = static_cast<float>(QFontInfo(font()).pointSizeF());
  lstAddKey->setFont(DisplayFont(ListFontName(), size));
}

std::optional<CharCode> frmAddKey::ChosenCharacter() const {
  if (lstAddKey->selectedItems().isEmpty()) return std::nullopt;
  return m_characters.at(static_cast<std::size_t>(lstAddKey->currentRow()));
}

TickedSides frmAddKey::Sides() const {
  return {.front = sscFront->isChecked(), .back = sscBack->isChecked()};
}

QFont frmAddKey::FontFor(KeyFont keyFont) const {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  switch (keyFont) {
    case KeyFont::Front:
      return DisplayFont(fonts.FrontFont, fonts.FrontSize);
    case KeyFont::Back:
      return DisplayFont(fonts.BackFont, fonts.BackSize);
    case KeyFont::Default:
      break;
  }
  return DisplayFont(DefaultFontName, DefaultFontSize);
}

TextView frmAddKey::ListFontName() const {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  switch (FontOfSides(Sides())) {
    case KeyFont::Front:
      return fonts.FrontFont;
    case KeyFont::Back:
      return fonts.BackFont;
    case KeyFont::Default:
      break;
  }
  return DefaultFontName;
}
