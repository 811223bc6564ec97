#include "windows/keys/frmKeys.h"

#include "keys/KeyNames.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/QtText.h"
#include "windows/keys/frmMoreKeys.h"

#include <QFontMetrics>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

#include <algorithm>

namespace {

/// The rows as one control, which shows that it has the focus.
class RowFrame : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QFrame::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
  }
};

}  // namespace

frmKeys::frmKeys(SharedState& shared, Platform& platform, QWidget* owner,
                 const TopicSettings& topic)
    : Form("frmKeys", shared, platform, owner),
      m_topic(topic),
      m_side(RequestedSide(shared.Switches.KeyCodeToSend)),
      sspKeyAss(Add<QGroupBox>(QStringLiteral("sspKeyAss"), QStringLiteral("Key Assignments:"))),
      sspRows(Add<RowFrame>(QStringLiteral("sspRows"))),
      sspCol1(Add<QFrame>(QStringLiteral("sspCol1"))),
      sspCol2(Add<QFrame>(QStringLiteral("sspCol2"))),
      vsbBar(Add<QScrollBar>(QStringLiteral("vsbBar"), Qt::Vertical)),
      cmdSend(Add<QPushButton>(QStringLiteral("cmdSend"), QStringLiteral("Send"))),
      cmdMore(Add<QPushButton>(QStringLiteral("cmdMore"), QStringLiteral("More..."))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("Cancel"))) {
  for (int row = 0; row < PickerRows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    lblCol1.at(i) = Add<QLabel>(QStringLiteral("lblCol1(%1)").arg(row));
    lblCol2.at(i) = Add<QLabel>(QStringLiteral("lblCol2(%1)").arg(row));
    lblCol1.at(i)->installEventFilter(this);
    lblCol2.at(i)->installEventFilter(this);
  }
  setWindowTitle(m_side == KeySide::Back ? QStringLiteral("Back Keys")
                                         : QStringLiteral("Front Keys"));
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Keys);
  connect(vsbBar, &QScrollBar::valueChanged, this, &frmKeys::vsbBar_Change);
  connect(cmdSend, &QPushButton::clicked, this, &frmKeys::cmdSend_Click);
  connect(cmdMore, &QPushButton::clicked, this, &frmKeys::cmdMore_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmKeys::cmdCanc_Click);
  SetOkButton(cmdSend);
  SetCancelButton(cmdCanc);
  Form_Load();
}

void frmKeys::LayOut() {
  const auto fill = [](QFrame* column, const auto& labels) {
    column->setBackgroundRole(QPalette::Base);
    column->setAutoFillBackground(true);
    auto* const rows = new QVBoxLayout(column);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    for (QLabel* const label : labels) {
      label->setMargin(4);
      rows->addWidget(label, 1);
    }
  };
  fill(sspCol1, lblCol1);
  fill(sspCol2, lblCol2);
  for (QLabel* const label : lblCol1) label->setAlignment(Qt::AlignCenter);
  sspRows->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  sspRows->setFocusPolicy(Qt::StrongFocus);
  sspRows->setAccessibleName(QStringLiteral("Key assignments"));
  SetAccessibleRole(sspRows, QAccessible::List);
  vsbBar->setAccessibleName(QStringLiteral("Scroll through the key assignments"));
  auto* const columns = new QHBoxLayout(sspRows);
  columns->setContentsMargins(3, 3, 3, 3);
  columns->setSpacing(0);
  columns->addWidget(sspCol1, 1);
  columns->addWidget(sspCol2, 3);
  auto* const list = new QHBoxLayout(sspKeyAss);
  list->setSpacing(2);
  list->addWidget(sspRows, 1);
  list->addWidget(vsbBar);
  cmdMore->setToolTip(QStringLiteral("Choose from all characters of the font"));
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* const button : {cmdSend, cmdMore, cmdCanc}) buttons->addWidget(button);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  column->addWidget(sspKeyAss, 1);
  column->addLayout(buttons);
  SetTabOrder({sspRows, vsbBar, cmdSend, cmdMore, cmdCanc});
}

void frmKeys::Form_Load() {
  // The rows keep their height, whichever side's font they show.
  int height = 0;
  for (const CharCode side : {FrontSideMark, BackSideMark, BothSidesMark}) {
    height = std::max(height, QFontMetrics(FontOf({.side = side})).height());
  }
  constexpr int Padding = 8;
  for (QLabel* const label : lblCol1) label->setMinimumSize(2 * height, height + Padding);
  lblCol2.front()->setMinimumWidth(
      fontMetrics().horizontalAdvance(QStringLiteral("Shift+Ctrl+Alt+MM")) + Padding);
  vsbBar->setPageStep(PickerRows);
  vsbBar->setRange(1, std::max<int>(1, ScrollMaximum()));
  vsbBar->setEnabled(m_topic.Keys.KeyCount > 1);
  SelectRow(-1);
  ShowRows(1);
  sspRows->setFocus();
}

QFont frmKeys::FontOf(const KeyAssignment& assignment) const {
  const TopicFonts& fonts = m_topic.Fonts;
  if (assignment.side == FrontSideMark) return DisplayFont(fonts.FrontFont, fonts.FrontSize);
  if (assignment.side == BackSideMark) return DisplayFont(fonts.BackFont, fonts.BackSize);
  return DisplayFont(DefaultFontName, DefaultFontSize);
}

void frmKeys::ShowRows(int top) {
  for (int row = 0; row < PickerRows; ++row) ShowRow(row, top);
}

void frmKeys::ShowRow(int row, int top) {
  QLabel& character = *lblCol1.at(static_cast<std::size_t>(row));
  QLabel& keystroke = *lblCol2.at(static_cast<std::size_t>(row));
  const std::optional<int> slot = PickerSlot(m_topic.Keys, top, row);
  character.clear();
  keystroke.clear();
  const bool choosable = IsRowChoosable(m_topic.Keys, top, row, m_side);
  character.setEnabled(choosable);
  keystroke.setEnabled(choosable);
  if (!slot) return;
  const KeyAssignment& assignment = m_topic.Keys.Slot(*slot);
  const bool control = IsControlCode(assignment.character);
  character.setFont(control ? font() : FontOf(assignment));
  character.setText(control ? ToQString(InvisibleName(assignment.character))
                            : QString(QChar(CharOfCode(assignment.character))));
  keystroke.setText(ToQString(KeystrokeText(assignment)));
}

void frmKeys::SelectRow(int row) {
  m_selectedRow = row;
  for (int i = 0; i < PickerRows; ++i) {
    for (QLabel* const label :
         {lblCol1.at(static_cast<std::size_t>(i)), lblCol2.at(static_cast<std::size_t>(i))}) {
      label->setAutoFillBackground(i == row);
      label->setBackgroundRole(i == row ? QPalette::Highlight : QPalette::Base);
      label->setForegroundRole(i == row ? QPalette::HighlightedText : QPalette::Text);
    }
  }
  cmdSend->setEnabled(row >= 0);
  const std::optional<int> slot =
      row < 0 ? std::nullopt : PickerSlot(m_topic.Keys, vsbBar->value(), row);
  sspRows->setAccessibleDescription(slot ? ToQString(KeyAssignmentText(m_topic.Keys.Slot(*slot)))
                                         : QString());
}

void frmKeys::lblCol_Click(int row) {
  if (IsRowChoosable(m_topic.Keys, vsbBar->value(), row, m_side)) SelectRow(row);
}

void frmKeys::lblCol_DblClick(int row) {
  lblCol_Click(row);
  if (row == m_selectedRow) cmdSend_Click();
}

void frmKeys::vsbBar_Change(int value) {
  ShowRows(value);
  // A row that went blank, or came to show an assignment of the other side, cannot be sent.
  const bool stays =
      m_selectedRow >= 0 && IsRowChoosable(m_topic.Keys, value, m_selectedRow, m_side);
  SelectRow(stays ? m_selectedRow : -1);
}

bool frmKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::MouseButtonPress;
  const bool again = event->type() == QEvent::MouseButtonDblClick;
  if ((!press && !again) || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
    return Form::eventFilter(watched, event);
  }
  for (int row = 0; row < PickerRows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    if (watched != lblCol1.at(i) && watched != lblCol2.at(i)) continue;
    if (press) lblCol_Click(row);
    if (again) lblCol_DblClick(row);
    return true;
  }
  return Form::eventFilter(watched, event);
}

void frmKeys::keyPressEvent(QKeyEvent* event) {
  const int last = m_topic.Keys.KeyCount;
  const int top = vsbBar->value();
  const int from = m_selectedRow < 0 ? top - 1 : top + m_selectedRow;
  switch (event->key()) {
    case Qt::Key_Up:
      return Choose(ChoosableSlotFrom(m_topic.Keys, from, -1, m_side));
    case Qt::Key_Down:
      return Choose(ChoosableSlotFrom(m_topic.Keys, from, 1, m_side));
    case Qt::Key_PageUp:
      return Choose(ChoosableSlotFrom(m_topic.Keys, from, -PickerRows, m_side));
    case Qt::Key_PageDown:
      return Choose(ChoosableSlotFrom(m_topic.Keys, from, PickerRows, m_side));
    case Qt::Key_Home:
      return Choose(ChoosableSlotFrom(m_topic.Keys, 0, 1, m_side));
    case Qt::Key_End:
      return Choose(ChoosableSlotFrom(m_topic.Keys, last + 1, -1, m_side));
    default:
      Form::keyPressEvent(event);
  }
}

/// Brings a slot into view and highlights it.
void frmKeys::Choose(std::optional<int> slot) {
  if (!slot) return;
  vsbBar->setValue(TopThatShows(*slot, vsbBar->value()));
  SelectRow(*slot - vsbBar->value());
}

void frmKeys::cmdSend_Click() {
  const std::optional<int> slot = PickerSlot(m_topic.Keys, vsbBar->value(), m_selectedRow);
  m_shared.Switches.KeyCodeToSend = static_cast<int>(m_topic.Keys.Slot(slot.value()).character);
  Unload();
}

void frmKeys::cmdMore_Click() {
  const QPointer<frmKeys> alive(this);
  const QPointer<frmMoreKeys> chart(new frmMoreKeys(m_shared, m_platform, this, m_topic.Fonts));
  chart->ShowModal();
  delete chart.data();
  if (alive != nullptr && m_shared.Switches.KeyCodeToSend >= 0) Unload();
}
