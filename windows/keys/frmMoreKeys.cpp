#include "windows/keys/frmMoreKeys.h"

#include "keys/KeyPickers.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/QtText.h"
#include "windows/frame/ToolTips.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRawFont>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int Columns = 8;
constexpr int CodesInAll = ChartPages * ChartPageSize;

// Where a key's label stands on its panel: 0, 40 twips, and 20, 60 twips while it is pressed, at 15
// twips a pixel.
constexpr QMargins RaisedMargins(0, 3, 0, 0);
constexpr QMargins PressedMargins(1, 4, 0, 0);

/// A key of the chart, which shows that it has the focus.
class ChartKey : public QFrame {
 public:
  using QFrame::QFrame;

 protected:
  void paintEvent(QPaintEvent* event) override {
    QFrame::paintEvent(event);
    if (!hasFocus()) return;
    const bool selected = backgroundRole() == QPalette::Highlight;
    const QPalette::ColorRole role = selected ? QPalette::HighlightedText : QPalette::Text;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(role), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(3, 3, -4, -4));
  }
};

enum class Drawing { Itself, InAnotherFont, NotAtAll };

Drawing DrawingOf(CharCode code, const QFont& font) {
  const QChar character(CharOfCode(code));
  if (IsControlCode(code) || !QFontMetrics(font).inFont(character)) return Drawing::NotAtAll;
  return QRawFont::fromFont(font).supportsCharacter(character) ? Drawing::Itself
                                                               : Drawing::InAnotherFont;
}

/// What stands on a key that cannot show its character.
QString Placeholder(CharCode code) {
  const TextView name = InvisibleName(code);
  return name.empty() ? QStringLiteral("?") : ToQString(name);
}

QString Description(CharCode code, Drawing drawing) {
  QString text = ToQString(ChartStatusText(code));
  const TextView name = InvisibleName(code);
  const Text shown = name.empty() ? Text(1, CharOfCode(code)) : Text(name);
  text += QStringLiteral("   ") + ToQString(shown);
  if (drawing == Drawing::NotAtAll && !IsControlCode(code)) {
    text += QStringLiteral("   (no font can show it)");
  } else if (drawing == Drawing::InAnotherFont) {
    text += QStringLiteral("   (not in this font, shown in another)");
  }
  return text;
}

}  // namespace

frmMoreKeys::frmMoreKeys(SharedState& shared, Platform& platform, QWidget* owner,
                         const TopicFonts& fonts)
    : Form("frmMoreKeys", shared, platform, owner),
      sspKeyFrame(Add<QFrame>(QStringLiteral("sspKeyFrame"))),
      hsbBar(Add<QScrollBar>(QStringLiteral("hsbBar"), Qt::Horizontal)),
      sspRange(Add<QLabel>(QStringLiteral("sspRange"))),
      sspStatus(Add<QLabel>(QStringLiteral("sspStatus"))),
      cmdSend(Add<QPushButton>(QStringLiteral("cmdSend"), QStringLiteral("&Send Key"))),
      cmdCancel(Add<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"))) {
  for (int i = 0; i < ChartPageSize; ++i) {
    Panel(i) = Add<ChartKey>(QStringLiteral("sspKey(%1)").arg(i));
    Label(i) = Add<QLabel>(QStringLiteral("lblKey(%1)").arg(i));
    Panel(i)->installEventFilter(this);
    SetAccessibleRole(Panel(i), QAccessible::Button);
  }
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::MoreKeys);
  connect(hsbBar, &QScrollBar::valueChanged, this, &frmMoreKeys::hsbBar_Change);
  connect(cmdSend, &QPushButton::clicked, this, &frmMoreKeys::cmdSend_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmMoreKeys::cmdCancel_Click);
  SetOkButton(cmdSend);
  SetCancelButton(cmdCancel);
  Form_Load(fonts);
}

void frmMoreKeys::LayOut() {
  auto* const keys = new QGridLayout(sspKeyFrame);
  keys->setContentsMargins(0, 0, 0, 0);
  keys->setSpacing(3);
  for (int i = 0; i < ChartPageSize; ++i) {
    auto* const key = new QVBoxLayout(Panel(i));
    key->addWidget(Label(i));
    Label(i)->setAlignment(Qt::AlignCenter);
    Panel(i)->setAutoFillBackground(true);
    Panel(i)->setLineWidth(1);
    Panel(i)->setFocusPolicy(Qt::ClickFocus);
    keys->addWidget(Panel(i), i / Columns, i % Columns);
  }
  hsbBar->setRange(0, ChartPages - 1);
  hsbBar->setPageStep(1);
  hsbBar->setAccessibleName(QStringLiteral("Page"));
  hsbBar->setToolTip(QStringLiteral("Page through the codes"));
  hsbBar->setFocusPolicy(Qt::StrongFocus);
  for (QLabel* const panel : {sspRange, sspStatus}) {
    panel->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    panel->setMargin(4);
  }
  auto* const lines = new QHBoxLayout;
  lines->addWidget(sspRange, 1);
  lines->addWidget(sspStatus, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdSend);
  buttons->addWidget(cmdCancel);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  column->addWidget(sspKeyFrame, 1);
  column->addWidget(hsbBar);
  column->addLayout(lines);
  column->addLayout(buttons);
  for (int i = 1; i < ChartPageSize; ++i) setTabOrder(Panel(i - 1), Panel(i));
  SetTabOrder({sspKey.back(), hsbBar, cmdSend, cmdCancel});
}

void frmMoreKeys::Form_Load(const TopicFonts& fonts) {
  const bool back = RequestedSide(m_shared.Switches.KeyCodeToSend) == KeySide::Back;
  const Text& name = back ? fonts.BackFont : fonts.FrontFont;
  setWindowTitle(TitleText(u"More Keys - " + name));
  constexpr double Magnification = 1.5;  // of the desktop's own size
  m_font = DisplayFont(name, static_cast<float>(QFontInfo(font()).pointSizeF() * Magnification));
  const QFontMetrics metrics(m_font);
  for (QFrame* const panel : sspKey)
    panel->setMinimumSize(metrics.height() * 2, metrics.height() * 2);
  hsbBar_Change(0);
  lblKey_Click(0);
}

void frmMoreKeys::ShowKey(int key) {
  const CharCode code = ChartCode(hsbBar->value(), key);
  const Drawing drawing = DrawingOf(code, m_font);
  const bool drawn = drawing != Drawing::NotAtAll;
  QLabel& label = *Label(key);
  label.setFont(drawn ? m_font : font());
  label.setText(drawn ? QString(QChar(CharOfCode(code))) : Placeholder(code));
  m_dimmed.at(static_cast<std::size_t>(key)) = drawing != Drawing::Itself;
  const QString description = Description(code, drawing);
  SetSilentToolTip(*Panel(key), ToText(description));
  Panel(key)->setAccessibleName(description);
  SetLook(key, KeyLook::Lowered);
}

void frmMoreKeys::SetLook(int key, KeyLook look) {
  QFrame& panel = *Panel(key);
  QLabel& label = *Label(key);
  const bool selected = look != KeyLook::Lowered;
  const bool pressed = look == KeyLook::Pressed;
  panel.setFrameShape(selected ? QFrame::Panel : QFrame::StyledPanel);
  panel.setFrameShadow(pressed                   ? QFrame::Sunken
                       : look == KeyLook::Raised ? QFrame::Raised
                                                 : QFrame::Plain);
  panel.setBackgroundRole(selected ? QPalette::Highlight : QPalette::Base);
  panel.layout()->setContentsMargins(pressed ? PressedMargins : RaisedMargins);
  const bool dimmed = m_dimmed.at(static_cast<std::size_t>(key));
  label.setForegroundRole(selected ? QPalette::HighlightedText
                          : dimmed ? QPalette::PlaceholderText
                                   : QPalette::Text);
}

void frmMoreKeys::Deselect() {
  if (m_selectedKey >= 0) SetLook(m_selectedKey, KeyLook::Lowered);
  m_selectedKey = -1;
  sspStatus->clear();
  cmdSend->setEnabled(false);
}

void frmMoreKeys::hsbBar_Change(int page) {
  // Nothing is left to send until a key of the new page is clicked.
  Deselect();
  for (int key = 0; key < ChartPageSize; ++key) ShowKey(key);
  sspRange->setText(ToQString(ChartRangeText(page)));
}

void frmMoreKeys::lblKey_Click(int index) {
  Deselect();
  m_selectedKey = index;
  SetLook(index, KeyLook::Raised);
  sspStatus->setText(ToQString(ChartStatusText(ChartCode(hsbBar->value(), index))));
  cmdSend->setEnabled(true);
  // Tab comes to the key that was chosen last, and the arrows go on from there.
  for (QFrame* const panel : sspKey) {
    panel->setFocusPolicy(panel == Panel(index) ? Qt::StrongFocus : Qt::ClickFocus);
  }
  Panel(index)->setFocus();
}

void frmMoreKeys::lblKey_MouseDown(int index) { SetLook(index, KeyLook::Pressed); }

void frmMoreKeys::lblKey_MouseUp(int index) {
  SetLook(index, index == m_selectedKey ? KeyLook::Raised : KeyLook::Lowered);
}

bool frmMoreKeys::eventFilter(QObject* watched, QEvent* event) {
  const auto* const panel = std::find(sspKey.begin(), sspKey.end(), watched);
  const bool mouse = event->type() == QEvent::MouseButtonPress ||
                     event->type() == QEvent::MouseButtonRelease ||
                     event->type() == QEvent::MouseButtonDblClick;
  if (panel == sspKey.end() || !mouse) return Form::eventFilter(watched, event);
  const auto& click = *static_cast<QMouseEvent*>(event);
  if (click.button() != Qt::LeftButton) return false;
  const auto index = static_cast<int>(panel - sspKey.begin());
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      lblKey_MouseDown(index);
      break;
    case QEvent::MouseButtonRelease:
      lblKey_MouseUp(index);
      if ((*panel)->rect().contains(click.pos())) lblKey_Click(index);
      break;
    default:
      lblKey_Click(index);
      cmdSend_Click();
      break;
  }
  return true;
}

void frmMoreKeys::keyPressEvent(QKeyEvent* event) {
  const int first = ChartPageSize * hsbBar->value();
  const int code = first + std::max(m_selectedKey, 0);
  const bool ctrl = (event->modifiers() & Qt::ControlModifier) != 0;
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveBy(-1);
    case Qt::Key_Right:
      return MoveBy(1);
    case Qt::Key_Up:
      return MoveBy(-Columns);
    case Qt::Key_Down:
      return MoveBy(Columns);
    case Qt::Key_PageUp:
      return MoveTo(code - ChartPageSize);
    case Qt::Key_PageDown:
      return MoveTo(code + ChartPageSize);
    case Qt::Key_Home:
      return MoveTo(ctrl ? 0 : first);
    case Qt::Key_End:
      return MoveTo(ctrl ? CodesInAll - 1 : first + ChartPageSize - 1);
    case Qt::Key_Space:
      return MoveBy(0);
    default:
      Form::keyPressEvent(event);
  }
}

/// From the chosen key; without one, to the first key of the page.
void frmMoreKeys::MoveBy(int keys) {
  const int first = ChartPageSize * hsbBar->value();
  MoveTo(m_selectedKey < 0 ? first : first + m_selectedKey + keys);
}

/// Chooses the key of a code on whatever page it is; there is no way beyond the ends.
void frmMoreKeys::MoveTo(int code) {
  if (code < 0 || code >= CodesInAll) return;
  hsbBar->setValue(code / ChartPageSize);
  lblKey_Click(code % ChartPageSize);
}

void frmMoreKeys::cmdSend_Click() {
  m_shared.Switches.KeyCodeToSend = static_cast<int>(ChartCode(hsbBar->value(), m_selectedKey));
  Unload();
}
