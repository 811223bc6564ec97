#include "tests/monkey/Checks.h"

#include "cards/StackReader.h"
#include "settings/ProfileText.h"
#include "tests/support/MemoryFiles.h"
#include "windows/frame/QtText.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QWidget>

namespace {

constexpr int MostStrays = 10;

QByteArray ContentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Answers every question that reading asks.
class AgreeingPrompts : public Prompts {
 public:
  Answer Show(const Prompt& prompt) override {
    return prompt.buttons == PromptButtons::YesNo ? Answer::Yes : Answer::Ok;
  }
};

QString FirstOf(std::initializer_list<QString> complaints) {
  for (const QString& complaint : complaints) {
    if (!complaint.isEmpty()) return complaint;
  }
  return {};
}

bool BelongsTo(const QWidget* widget, const QWidget* window) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (widget == window) return true;
  }
  return false;
}

}  // namespace

Checks::Checks(const SharedState& shared, const QDir& folder, QString settings)
    : m_shared(shared), m_folder(folder), m_settings(std::move(settings)) {
  QDirIterator files(m_folder.path(), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    m_known[path] = ContentOf(path);
  }
}

QString Checks::State() { return FirstOf({Stacks(), Topics(), Focus()}); }

QString Checks::Stacks() const {
  const StackStore& stacks = m_shared.Stacks;
  const int records = static_cast<int>(stacks.StackList.size());
  const int count = stacks.StackCount;
  if (records != std::max(count + 1, 1)) {
    return QStringLiteral("%1 stacks are counted, %2 are there").arg(count + 1).arg(records);
  }
  const int current = stacks.CurrentStack;
  if (current < 0 || current >= records) return QStringLiteral("stack %1 is selected").arg(current);
  if (stacks.StackDescription.size() > DescriptionWidth) {
    return QStringLiteral("the description is too long");
  }
  for (const CardStack& stack : stacks.StackList) {
    const int cards = stack.CardCount;
    if (cards < 0 || cards > MaxCards) return QStringLiteral("a stack has %1 cards").arg(cards);
    if (stack.StackName.size() > StackNameWidth)
      return QStringLiteral("a stack's name is too long");
    for (int card = 1; card <= cards; ++card) {
      (void)stack.SideText(card, Front);  // throws when the stack is torn
      (void)stack.SidePicture(card, Back);
    }
  }
  return {};
}

QString Checks::Topics() const {
  const TopicList& topics = m_shared.Topics;
  if (topics.TopicCount < -1 || topics.TopicCount > MaxTopics) {
    return QStringLiteral("%1 topics").arg(int{topics.TopicCount});
  }
  for (const Text& name : topics.Names) {
    if (name.size() > MaxTopicName) return QStringLiteral("a topic's name is too long");
  }
  const KeyTable& keys = m_shared.Topic.Keys;
  if (keys.KeyCount < 0 || keys.KeyCount > MaxKeyAssignments) {
    return QStringLiteral("%1 key assignments").arg(int{keys.KeyCount});
  }
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  if (!(fonts.FrontSize > 0) || !(fonts.BackSize > 0)) return QStringLiteral("a font has no size");
  return {};
}

QString Checks::Focus() {
  const QWidget* const modal = QApplication::activeModalWidget();
  const QWidget* const focus = QApplication::focusWidget();
  if (modal == nullptr || focus == nullptr || QApplication::activePopupWidget() != nullptr) {
    return {};
  }
  const bool inHelp = focus->window()->objectName() == QLatin1String("frmHelp");
  m_strays = inHelp || BelongsTo(focus, modal) ? 0 : m_strays + 1;
  // A window that has just come up is given the focus a moment later.
  if (m_strays < MostStrays) return {};
  return QStringLiteral("%1 has the focus under the modal window %2")
      .arg(focus->objectName(), modal->objectName());
}

QString Checks::StackFileAt(const QString& path, const QByteArray& content) const {
  if (content.startsWith("%PDF")) return {};  // printed to under a stack's name
  if (!content.endsWith("\r\n")) return path + QStringLiteral(" does not end with its last line");
  MemoryFiles files;
  files.Put(u"/x.QBC", content.toStdString());
  StackStore stacks;
  AgreeingPrompts prompts;
  const FileStatus status = ReadStackFile(stacks, files, prompts, u"/", u"x.QBC", ReadMode::Full,
                                          [](const Text&) { return 0; });
  // A save that failed at its first card leaves a new file without one.
  if (status == FileStatus::Ok || status == FileStatus::PastEnd) return {};
  return path + QStringLiteral(" cannot be read: %1").arg(static_cast<int>(status));
}

QString Checks::SettingsFile() const {
  const QByteArray content = ContentOf(m_settings);
  if (content.isEmpty()) return QStringLiteral("the settings file is empty or gone");
  if (!content.endsWith("\r\n")) return QStringLiteral("the settings file's last line is torn");
  const ProfileText profile(DecodeFileText(content.toStdString()));
  if (!profile.Value(TopicsSection, DefaultTopicKey)) {
    return QStringLiteral("the settings file has lost its default topic");
  }
  return {};
}

QString Checks::Files() {
  QDirIterator files(m_folder.path(), {QStringLiteral("*.QBC"), QStringLiteral("*.qbc")},
                     QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const QByteArray content = ContentOf(path);
    QByteArray& known = m_known[path];
    if (content == known) continue;
    if (QString complaint = StackFileAt(path, content); !complaint.isEmpty()) return complaint;
    known = content;
  }
  return SettingsFile();
}

QString Checks::AtHome() const {
  if (m_shared.Stacks.StackFileNumber != nullptr) {
    return QStringLiteral("a stack file is still open for writing");
  }
  QDirIterator left(m_folder.path(), {QStringLiteral(".quibcards-save-*")},
                    QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  if (left.hasNext()) return left.next() + QStringLiteral(" was left behind");
  const WindowSwitches& switches = m_shared.Switches;
  if (switches.AddCardsMode || switches.NewDescription || switches.NewTopicMode ||
      switches.ChangeTopicMode || switches.PrintMode) {
    return QStringLiteral("a switch is still set with no window to read it");
  }
  return {};
}
