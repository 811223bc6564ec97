#include "windows/keys/KeyMenus.h"

#include "keys/KeyNames.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CardField.h"
#include "windows/keys/frmKeys.h"
#include "windows/keys/frmMoreKeys.h"

#include <QAction>
#include <QMenuBar>

namespace {

struct SideNames {
  QString head;
  QString items;
  QString caption;
};

SideNames NamesOf(KeySide side) {
  if (side == KeySide::Front) {
    return {QStringLiteral("mnuFKeysHead"), QStringLiteral("mnuFKeys"),
            QStringLiteral("&Front Keys")};
  }
  return {QStringLiteral("mnuBKeysHead"), QStringLiteral("mnuBKeys"), QStringLiteral("&Back Keys")};
}

constexpr int MoreKeysIndex = 0;

}  // namespace

KeyMenus::KeyMenus(QMenuBar* bar, KeyMenuStyle style, const TopicSettings& topic,
                   SharedState& shared, Platform& platform)
    : QObject(bar),
      m_bar(bar),
      m_style(style),
      m_topic(topic),
      m_shared(shared),
      m_platform(platform) {
  for (const KeySide side : {KeySide::Front, KeySide::Back}) AddHead(side);
  Rebuild();
}

void KeyMenus::AddHead(KeySide side) {
  const SideNames names = NamesOf(side);
  Menu& menu = MenuOf(side);
  menu.items = new QMenu(m_bar);
  menu.items->setObjectName(names.items);
  menu.head = m_bar->addAction(names.caption);
  menu.head->setObjectName(names.head);
  menu.head->setEnabled(false);
  connect(menu.head, &QAction::triggered, this, [this, side] {
    if (MenuOf(side).head->menu() == nullptr) KeyHeadChosen(side);
  });
}

void KeyMenus::AddField(CardField* field) {
  if (m_field == nullptr || field->Edit()->hasFocus()) m_field = field;
  connect(field, &CardField::GotFocus, this, [this, field] { m_field = field; });
}

void KeyMenus::AddSideField(CardField* field, KeySide side) {
  AddField(field);
  connect(field, &CardField::GotFocus, this, [this, side] { SetEnabled(side, true); });
  connect(field, &CardField::LostFocus, this, [this, side] { SetEnabled(side, false); });
}

void KeyMenus::SetEnabled(KeySide side, bool enabled) { MenuOf(side).head->setEnabled(enabled); }

void KeyMenus::Rebuild() {
  for (const KeySide side : {KeySide::Front, KeySide::Back}) Rebuild(side);
}

void KeyMenus::Rebuild(KeySide side) {
  const TopicFonts& fonts = m_topic.Fonts;
  const KeyTable& keys = m_topic.Keys;
  const bool drawable =
      (side == KeySide::Front ? fonts.FrontFont : fonts.BackFont) == DefaultFontName;
  const bool opensPicker = !drawable && keys.KeyCount >= 1;
  const Menu& menu = MenuOf(side);
  Clear(*menu.items);
  AddItem(side, MoreKeysIndex, QStringLiteral("More Keys..."));
  for (int slot = 1; drawable && slot <= keys.KeyCount; ++slot) {
    if (!IsForSide(keys.Slot(slot), side)) continue;
    AddItem(side, slot, EscapeMnemonics(KeyAssignmentText(keys.Slot(slot))));
  }
  menu.head->setVisible(drawable || m_style == KeyMenuStyle::CardWindow);
  menu.head->setMenu(opensPicker ? static_cast<QMenu*>(nullptr) : menu.items);
}

void KeyMenus::Clear(QMenu& items) {
  for (QAction* const item : items.actions()) {
    items.removeAction(item);
    item->setObjectName(QString());  // free for its successor
    item->deleteLater();             // it may be the one that is being chosen
  }
}

void KeyMenus::AddItem(KeySide side, int index, const QString& caption) {
  QAction* const item = MenuOf(side).items->addAction(caption);
  item->setObjectName(QStringLiteral("%1(%2)").arg(NamesOf(side).items).arg(index));
  connect(item, &QAction::triggered, this, [this, index, side] { KeyMenuChosen(index, side); });
}

void KeyMenus::KeyMenuChosen(int index, KeySide side) {
  if (index == MoreKeysIndex) {
    Pick(side,
         [this] { return new frmMoreKeys(m_shared, m_platform, m_bar->window(), m_topic.Fonts); });
    return;
  }
  if (index < 0 || index > m_topic.Keys.KeyCount) return;
  m_shared.Switches.KeyCodeToSend = static_cast<int>(m_topic.Keys.Slot(index).character);
  TypeChosen();
}

void KeyMenus::KeyHeadChosen(KeySide side) {
  Pick(side, [this] { return new frmKeys(m_shared, m_platform, m_bar->window(), m_topic); });
}

void KeyMenus::Pick(KeySide side, const std::function<Form*()>& makePicker) {
  m_shared.Switches.KeyCodeToSend = PickerRequest(side);
  // The window may be closed, and picker and menus with it, while the picker is open.
  const QPointer<KeyMenus> alive(this);
  const QPointer<Form> picker(makePicker());
  picker->ShowModal();
  delete picker.data();
  if (alive != nullptr) TypeChosen();
}

void KeyMenus::TypeChosen() {
  const int code = m_shared.Switches.KeyCodeToSend;
  if (code < 0 || m_field == nullptr) return;
  m_field->Edit()->setFocus();
  m_field->Type(static_cast<CharCode>(code));
}
