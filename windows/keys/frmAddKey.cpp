#include "windows/keys/frmAddKey.h"

#include "keys/KeyPickers.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/FocusMove.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CharacterList.h"
#include "windows/keys/KeyRows.h"
#include "windows/keys/VirtualKeys.h"
#include "windows/keys/frmMoreKeys.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

frmAddKey::frmAddKey(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmAddKey", shared, platform, owner),
      m_newTopic(shared.Switches.NewTopicMode),
      m_topicName(m_newTopic ? shared.Switches.NewTopicName
                             : shared.Topics.Name(shared.Topics.CurrentTopic)),
      m_editing(m_newTopic ? KeyTable() : shared.Topic.Keys),
      sspKeyAss(Add<KeyRows>(
          QStringLiteral("sspKeyAss"), [this](int place) { return m_editing.Assignment(place); },
          [this](const KeyAssignment& assignment) {
            return FontFor(FontOfAssignment(assignment, Sides()));
          })),
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
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::AddKey);
  connect(sscFront, &QCheckBox::clicked, this, [this] { sscSide_Click(sscFront, sscBack); });
  connect(sscBack, &QCheckBox::clicked, this, [this] { sscSide_Click(sscBack, sscFront); });
  connect(lstAddKey, &QListWidget::itemSelectionChanged, this, &frmAddKey::lstAddKey_Click);
  connect(lstAddKey, &QListWidget::itemClicked, this, &frmAddKey::lstAddKey_Click);
  connect(lstAddKey, &QListWidget::itemDoubleClicked, this, [this] { cboControlKey->setFocus(); });
  connect(cboControlKey, &QComboBox::activated, this, &frmAddKey::cboControlKey_Click);
  connect(cboControlKey->lineEdit(), &QLineEdit::textEdited, this,
          &frmAddKey::cboControlKey_Edited);
  connect(sspKeyAss, &KeyRows::RowChosen, this, &frmAddKey::lblCol2_Click);
  connect(sspKeyAss, &KeyRows::Scrolled, this, &frmAddKey::vsbBar_Change);
  connect(cmdAction, &QPushButton::clicked, this, &frmAddKey::cmdAction_Click);
  connect(cmdMore, &QPushButton::clicked, this, &frmAddKey::cmdMore_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmAddKey::cmdCancel_Click);
  connect(cmdDone, &QPushButton::clicked, this, &frmAddKey::cmdDone_Click);
  Form_Load();
}

void frmAddKey::LayOut() {
  sspKeyAss->SetRowSizes(
      {FontFor(KeyFont::Front), FontFor(KeyFont::Back), FontFor(KeyFont::Default)});
  cmdAction->setMinimumWidth(
      fontMetrics().horizontalAdvance(QStringLiteral("DELETE - 0000 = [F] Shift+Ctrl+Alt+W")) + 32);
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
  top->addWidget(sspKeyAss, 1);
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
               sspKeyAss->FirstRow(), sspKeyAss->Bar()});
  // Shift+Tab comes to the keystroke box where the field inside it stands, which hands the focus
  // on: it has to stand right behind its box.
  QLineEdit* const field = cboControlKey->lineEdit();
  field->setFocusProxy(nullptr);
  SetTabOrder({cboControlKey, field, cmdAction});
  field->setFocusProxy(cboControlKey);
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
  UseWindowColours(sspControlOutline);
  auto* const outline = new QVBoxLayout(sspControlOutline);
  outline->setContentsMargins(0, 0, 0, 0);
  outline->addWidget(cboControlKey);
  auto* const panel = new QVBoxLayout(sspControlKey);
  panel->addWidget(sspControlOutline);
  return sspControlKey;
}

void frmAddKey::SetNames() {
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
  setWindowTitle(TitleText(u"Key Assignments - " + m_topicName));
  sscFront->setChecked(true);
  sscBack->setChecked(true);
  m_ascCode = u"0000";
  sspAscCode->setText(ToQString(m_ascCode));
  SetListFont();
  FillLists();
  sspKeyAss->ShowScroll(ScrollAtStart(m_editing.WorkCount()));
  cmdCancel_Click();
  sscFront->setFocus();
}

bool frmAddKey::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lstAddKey && event->type() == QEvent::FocusIn &&
      IsFocusMove(*static_cast<QFocusEvent*>(event))) {
    lstAddKey_GotFocus();
  }
  const bool keystrokeBox = watched == cboControlKey || watched == cboControlKey->lineEdit();
  if (keystrokeBox && FilterKeystrokeBox(event)) return true;
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

/// The button names the keystroke that pressing it would assign, also when letters were typed
/// behind the one that was pressed or chosen.
void frmAddKey::cboControlKey_Edited(const QString& text) {
  if (ActionOf(m_caption) != KeyAction::Add || !cmdAction->isEnabled()) return;
  if (const std::optional<Keystroke> typed = ParseKeystroke(ToText(text))) {
    const int modifiers = static_cast<int>(typed->modifiers) - u'0';
    ShowAction(AddCaption(m_ascCode, PressedKeyText(static_cast<int>(typed->key), modifiers)));
  } else {
    cmdAction->setEnabled(false);
    ShowAction(AddCaption(m_ascCode, u""));
  }
}

void frmAddKey::OfferKeystroke() {
  cmdAction->setEnabled(true);
  ShowAction(AddCaption(m_ascCode, ToText(cboControlKey->currentText())));
}

void frmAddKey::lblCol2_Click(int row) {
  const std::optional<KeyAssignment> assignment =
      m_editing.Assignment(sspKeyAss->Scroll().value + row);
  if (!assignment) return;
  sspKeyAss->HighlightRow(row);
  ClearCharacter();
  ClearKeystroke();
  ShowAction(DeleteCaption(*assignment));
  cmdAction->setEnabled(true);
  cboControlKey->setEnabled(false);
  cmdAction->setFocus();
}

void frmAddKey::sscSide_Click(QCheckBox* box, QCheckBox* other) {
  if (!other->isChecked()) box->setChecked(true);
  SetListFont();
  sspKeyAss->Refresh();
}

void frmAddKey::lstAddKey_GotFocus() {
  ClearKeystroke();
  cmdAction->setEnabled(false);
  sspKeyAss->HighlightRow(-1);
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

void frmAddKey::vsbBar_Change() {
  if (sspKeyAss->HighlightedRow() >= 0) cmdAction->setEnabled(false);  // it loses its highlight
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
      sspKeyAss->ShowScroll(ScrollAfterAdd(sspKeyAss->Scroll(), m_editing.WorkCount()));
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
  const int row = sspKeyAss->HighlightedRow();
  const bool deleted = row >= 0 && m_editing.Delete(sspKeyAss->Scroll().value + row);
  if (deleted) sspKeyAss->ShowScroll(ScrollAfterDelete(sspKeyAss->Scroll(), m_editing.WorkCount()));
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
  sspKeyAss->HighlightRow(-1);
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
  const QList<QListWidgetItem*> chosen = lstAddKey->selectedItems();
  if (chosen.isEmpty()) return std::nullopt;
  return m_characters.at(static_cast<std::size_t>(lstAddKey->row(chosen.front())));
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
