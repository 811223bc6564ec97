#include "windows/main/DesktopPrompts.h"

#include "windows/frame/FitScreen.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSpacerItem>

namespace {

QMessageBox::Icon IconOf(PromptIcon icon) {
  switch (icon) {
    case PromptIcon::None:
      return QMessageBox::NoIcon;
    case PromptIcon::Question:
      return QMessageBox::Question;
    case PromptIcon::Exclamation:
      return QMessageBox::Warning;
    case PromptIcon::Information:
      return QMessageBox::Information;
  }
  return QMessageBox::NoIcon;
}

QString NameOf(PromptIcon icon) {
  switch (icon) {
    case PromptIcon::None:
      break;
    case PromptIcon::Question:
      return QStringLiteral("Question");
    case PromptIcon::Exclamation:
      return QStringLiteral("Warning");
    case PromptIcon::Information:
      return QStringLiteral("Information");
  }
  return {};
}

struct Words {
  TextView message;
  TextView explanation;
};

/// What follows an empty line explains the message.
Words WordsOf(TextView text) {
  constexpr TextView EmptyLine = u"\r\n\r\n";
  const std::size_t at = text.find(EmptyLine);
  if (at == TextView::npos) return {text, {}};
  return {text.substr(0, at), text.substr(at + EmptyLine.size())};
}

QMessageBox::StandardButtons ButtonsOf(PromptButtons buttons) {
  switch (buttons) {
    case PromptButtons::Ok:
      return QMessageBox::Ok;
    case PromptButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case PromptButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
  }
  return QMessageBox::Ok;
}

/// Said outright: left to itself a box takes its leftmost button, which is No on some desktops.
QMessageBox::StandardButton ProposedButton(const Prompt& prompt) {
  switch (prompt.buttons) {
    case PromptButtons::Ok:
      break;
    case PromptButtons::OkCancel:
      return prompt.proposesRefusal ? QMessageBox::Cancel : QMessageBox::Ok;
    case PromptButtons::YesNo:
      return prompt.proposesRefusal ? QMessageBox::No : QMessageBox::Yes;
  }
  return QMessageBox::Ok;
}

/// Widens a small box until its title can be read whole: beside it stand the window's icon and its
/// buttons, and it may be bold.
void MakeRoomForTitle(QMessageBox& box) {
  constexpr int ButtonsAndIcon = 6;  // each about twice as wide as the title is high
  auto* const layout = qobject_cast<QGridLayout*>(box.layout());
  if (layout == nullptr) return;
  QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
  font.setBold(true);
  const QFontMetrics metrics(font);
  const int width =
      metrics.horizontalAdvance(box.windowTitle()) + ButtonsAndIcon * metrics.height();
  layout->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                  layout->rowCount(), 0, 1, layout->columnCount());
}

}  // namespace

Answer DesktopPrompts::Show(const Prompt& prompt) {
  QWidget* const owner = QApplication::activeModalWidget() != nullptr
                             ? QApplication::activeModalWidget()
                             : QApplication::activeWindow();
  const Words words = WordsOf(prompt.text);
  QMessageBox box(IconOf(prompt.icon), ToQString(prompt.title), ToShownText(words.message),
                  ButtonsOf(prompt.buttons), owner);
  box.setObjectName("messageBox");
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(ToShownText(words.explanation));
  if (auto* const below = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
    below->setTextFormat(Qt::PlainText);  // the box's own format is not its
  }
  if (auto* const picture = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"))) {
    picture->setAccessibleName(NameOf(prompt.icon));
  }
  MakeRoomForTitle(box);
  box.setWindowModality(Qt::ApplicationModal);
  if (prompt.buttons == PromptButtons::YesNo) box.setEscapeButton(QMessageBox::No);
  box.setDefaultButton(ProposedButton(prompt));
  // While the program starts, no window is there for the box to stand on but the splash at most.
  if (owner == nullptr || owner->windowFlags().testFlag(Qt::FramelessWindowHint)) {
    box.adjustSize();
    FitOnScreen(box);
  }
  const bool busy = QApplication::overrideCursor() != nullptr;
  SetPointer(PointerShape::Normal);  // a question under an hourglass cannot be answered
  const int button = box.exec();
  if (busy) SetPointer(PointerShape::Busy);
  switch (button) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    case QMessageBox::Cancel:
      return Answer::Cancel;
    default:
      return Answer::Ok;
  }
}
