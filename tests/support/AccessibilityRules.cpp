#include "tests/support/AccessibilityRules.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using Widgets = std::vector<QWidget*>;

QString NameOf(const QObject* object) {
  if (object == nullptr) return QStringLiteral("(no object)");
  const QString name = object->objectName();
  return name.isEmpty() ? QLatin1String(object->metaObject()->className()) : name;
}

QString NameOf(QAccessibleInterface& thing) {
  if (thing.object() != nullptr) return NameOf(thing.object());
  QAccessibleInterface* const parent = thing.parent();
  return (parent == nullptr ? QString() : NameOf(*parent)) +
         QStringLiteral("/%1").arg(parent == nullptr ? -1 : parent->indexOfChild(&thing));
}

/// Whether a reader can say it: a text of blanks and control characters is silence.
bool IsSpoken(const QString& text) {
  return std::any_of(text.begin(), text.end(),
                     [](QChar unit) { return unit.isPrint() && !unit.isSpace(); });
}

/// Whether the focus can stay here; a proxy hands it on.
bool CanHaveFocus(QAccessibleInterface& thing) {
  const auto* const widget = qobject_cast<const QWidget*>(thing.object());
  return thing.state().focusable && (widget == nullptr || widget->focusProxy() == nullptr);
}

void ForEachThing(QAccessibleInterface* thing,
                  const std::function<void(QAccessibleInterface&)>& visit) {
  if (thing == nullptr || !thing->isValid() || thing->state().invisible) return;
  visit(*thing);
  for (int i = 0; i < thing->childCount(); ++i) ForEachThing(thing->child(i), visit);
}

/// Everything that a reader finds in the window, the window itself apart.
void ForEachThing(QWidget& window, const std::function<void(QAccessibleInterface&)>& visit) {
  QAccessibleInterface* const all = QAccessible::queryAccessibleInterface(&window);
  for (int i = 0; i < all->childCount(); ++i) ForEachThing(all->child(i), visit);
}

bool IsEntry(QAccessible::Role role) {
  switch (role) {
    case QAccessible::ListItem:
    case QAccessible::TreeItem:
    case QAccessible::Cell:
    case QAccessible::RowHeader:
    case QAccessible::ColumnHeader:
    case QAccessible::PageTab:
    case QAccessible::MenuItem:
      return true;
    default:
      return false;
  }
}

Widgets VisibleWidgets(const QWidget& window) {
  Widgets found;
  for (QWidget* const widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->window() == &window) found.push_back(widget);
  }
  return found;
}

bool IsStation(const QWidget* widget) {
  return widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
         widget->focusProxy() == nullptr;
}

/// Goes on from the control that has the focus; one that has stations of its own, as a page with
/// links has, is left for good.
/// @return the next control
QWidget* Press(QWidget& window, Qt::Key key) {
  constexpr int MostStationsInside = 200;
  QWidget* const before = window.focusWidget();
  for (int i = 0; i < MostStationsInside; ++i) {
    QTest::keyClick(before == nullptr ? &window : before, key);
    if (window.focusWidget() != before) break;
  }
  return window.focusWidget();
}

/// One round of Tab or Shift+Tab. Where it begins is where it has come round to once before, since
/// getting the focus may enable and disable others.
/// @return the stations from the first to the last before the first again; all that were pressed
/// when it did not come round
Widgets Round(QWidget& window, Qt::Key key, QWidget* first) {
  constexpr std::size_t TooMany = 400;
  Widgets stations = {first};
  for (QWidget* at = Press(window, key); at != first && at != nullptr; at = Press(window, key)) {
    stations.push_back(at);
    if (stations.size() > TooMany) break;
  }
  return stations;
}

/// Where the rounds begin: a station that Tab comes back to. Nothing when there is none.
QWidget* FirstStation(QWidget& window) {
  const Widgets all = VisibleWidgets(window);
  if (std::none_of(all.begin(), all.end(), IsStation)) return nullptr;
  QWidget* first = window.focusWidget();
  if (first == nullptr || !IsStation(first)) first = Press(window, Qt::Key_Tab);
  if (first != nullptr) (void)Round(window, Qt::Key_Tab, first);
  return window.focusWidget();
}

/// Gives the focus back to what had it.
class KeptFocus {
 public:
  explicit KeptFocus(QWidget& window) : m_focus(window.focusWidget()) {}
  ~KeptFocus() {
    if (m_focus != nullptr) m_focus->setFocus();
  }
  KeptFocus(const KeptFocus&) = delete;
  KeptFocus& operator=(const KeptFocus&) = delete;

 private:
  QWidget* m_focus;
};

QRect PlaceOf(const QWidget* widget) {
  return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

bool IsInRow(const QRect& a, const QRect& b) {
  const int shared = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
  return 2 * shared > std::min(a.height(), b.height());
}

/// Whether the step from one station to the next goes against the way of reading.
bool LeadsBack(const Widgets& stations, std::size_t step) {
  const QRect from = PlaceOf(stations[step]);
  const QRect to = PlaceOf(stations[(step + 1) % stations.size()]);
  if (IsInRow(from, to)) return to.center().x() < from.center().x();
  if (to.center().y() > from.center().y()) return false;
  return to.left() <= from.right();  // else it is the top of the next column
}

/// What a step leaves for later although it stands before where the step leads. Going up to the
/// next column leaves nothing beside the column behind it; going down to the left nothing above.
QWidget* LeftBehind(const Widgets& stations, std::size_t step) {
  const QRect from = PlaceOf(stations[step]);
  const QRect to = PlaceOf(stations[step + 1]);
  if (IsInRow(from, to)) return nullptr;
  const bool up = to.center().y() < from.center().y();
  for (std::size_t i = step + 2; i < stations.size(); ++i) {
    const QRect later = PlaceOf(stations[i]);
    const bool beside = later.center().x() < to.left() && later.top() <= from.bottom();
    const bool above = to.right() < from.left() && later.bottom() < to.top();
    if (up ? beside : above) return stations[i];
  }
  return nullptr;
}

QStringList NamesOf(const Widgets& widgets) {
  QStringList names;
  for (const QWidget* const widget : widgets) names << NameOf(widget);
  return names;
}

QStringList AgainstReading(Widgets stations) {
  const std::size_t count = stations.size();
  std::vector<std::size_t> back;
  for (std::size_t step = 0; count > 1 && step < count; ++step) {
    if (LeadsBack(stations, step)) back.push_back(step);
  }
  QStringList broken;
  if (back.size() > 1) {
    for (const std::size_t step : back) {
      broken << QStringLiteral("Tab leads back from %1 to %2")
                    .arg(NameOf(stations[step]), NameOf(stations[(step + 1) % count]));
    }
  } else if (back.size() == 1) {
    const auto top = static_cast<std::ptrdiff_t>((back.front() + 1) % count);
    std::rotate(stations.begin(), stations.begin() + top, stations.end());
    for (std::size_t step = 0; step + 1 < count; ++step) {
      const QWidget* const behind = LeftBehind(stations, step);
      if (behind == nullptr) continue;
      broken << QStringLiteral("Tab goes from %1 to %2 before %3")
                    .arg(NameOf(stations[step]), NameOf(stations[step + 1]), NameOf(behind));
    }
  }
  return broken;
}

/// Which keys are bound, and by whom.
class Bindings {
 public:
  void Add(const QKeySequence& keys, const QString& owner) {
    if (!keys.isEmpty()) m_owners[keys.toString()] << owner;
  }

  void AddMnemonic(const QString& caption, const QString& owner) {
    Add(QKeySequence::mnemonic(caption), owner);
  }

  QStringList Shared() const {
    QStringList shared;
    for (auto at = m_owners.begin(); at != m_owners.end(); ++at) {
      QStringList owners = at.value();
      owners.sort();
      if (owners.size() > 1) shared << at.key() + QStringLiteral(": ") + owners.join(u", ");
    }
    return shared;
  }

 private:
  QMap<QString, QStringList> m_owners;
};

QStringList SharedInMenu(const QMenu& menu) {
  Bindings bindings;
  for (const QAction* const item : menu.actions()) {
    if (item->isVisible()) bindings.AddMnemonic(item->text(), NameOf(item));
  }
  QStringList shared;
  for (const QString& line : bindings.Shared()) {
    shared << QStringLiteral("menu %1, ").arg(NameOf(&menu)) + line;
  }
  return shared;
}

/// Whether this is one of Qt's own controls, which have their keys; what its plain ones do is up to
/// the program.
bool IsControlOfQt(const QWidget* widget) {
  const QLatin1String kind(widget->metaObject()->className());
  const bool plain = kind == QLatin1String("QWidget") || kind == QLatin1String("QFrame") ||
                     kind == QLatin1String("QLabel");
  return kind.startsWith(u'Q') && !plain;
}

/// Whether a press of the mouse arrives at this widget and goes no further. It is let go outside.
bool TakesMousePress(QWidget& widget) {
  const QPointF middle = QRectF(widget.rect()).center();
  const QPointF outside(-100, -100);
  QMouseEvent press(QEvent::MouseButtonPress, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, outside, widget.mapToGlobal(outside),
                      Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &release);
  return press.isAccepted();
}

bool IsInsideFocusable(const QWidget* widget) {
  for (const QWidget* at = widget; at != nullptr && !at->isWindow(); at = at->parentWidget()) {
    if (at->focusPolicy() != Qt::NoFocus || at->focusProxy() != nullptr) return true;
  }
  return false;
}

bool IsPressedByKey(const QAbstractButton& button) {
  if (!button.shortcut().isEmpty()) return true;
  const auto* const tool = qobject_cast<const QToolButton*>(&button);
  const QAction* const action = tool == nullptr ? nullptr : tool->defaultAction();
  return action != nullptr && !action->shortcuts().isEmpty();
}

bool HasStationInGroup(const QAbstractButton& button) {
  if (!button.autoExclusive()) return false;
  const auto peers = button.parentWidget()->findChildren<QAbstractButton*>();
  return std::any_of(peers.begin(), peers.end(), [](const QAbstractButton* peer) {
    return peer->autoExclusive() && peer->isVisible() && IsStation(peer);
  });
}

/// Parts of Qt's own controls belong to those.
bool IsPart(const QWidget* widget) {
  const QWidget* const owner = widget->parentWidget();
  return qobject_cast<const QLineEdit*>(owner) != nullptr ||
         qobject_cast<const QComboBox*>(owner) != nullptr ||
         qobject_cast<const QTabBar*>(owner) != nullptr ||
         qobject_cast<const QMenuBar*>(owner) != nullptr;
}

/// How a control and its surroundings look now.
QImage LookAt(QWidget& window, const QWidget* control) {
  constexpr int FrameAround = 3;
  const QMargins around(FrameAround, FrameAround, FrameAround, FrameAround);
  QApplication::processEvents();
  return window.grab(PlaceOf(control).marginsAdded(around)).toImage();
}

/// Whether keys that go to the control with the focus show what an area has no room for.
bool IsScrolledByKeys(QWidget& window, const QAbstractScrollArea& area) {
  const auto place = [&area] {
    return QPoint(area.horizontalScrollBar()->value(), area.verticalScrollBar()->value());
  };
  const auto press = [&window](Qt::Key key) {
    QWidget* const focus = window.focusWidget();
    QTest::keyClick(focus == nullptr ? &window : focus, key);
  };
  const QPoint before = place();
  constexpr int Enough = 1000;  // presses; other areas of the window may come first
  for (const auto& [there, back] : {std::pair{Qt::Key_PageDown, Qt::Key_PageUp},
                                    {Qt::Key_PageUp, Qt::Key_PageDown},
                                    {Qt::Key_Right, Qt::Key_Left},
                                    {Qt::Key_Left, Qt::Key_Right}}) {
    for (int i = 0; i < Enough && place() == before; ++i) press(there);
    if (place() == before) continue;
    for (int i = 0; i < Enough && place() != before; ++i) press(back);
    return true;
  }
  return false;
}

}  // namespace

QStringList UnnamedControls(QWidget& window) {
  QStringList broken;
  ForEachThing(window, [&](QAccessibleInterface& thing) {
    if (CanHaveFocus(thing) && !IsSpoken(thing.text(QAccessible::Name))) {
      broken << QStringLiteral("%1 has no name").arg(NameOf(thing));
    }
  });
  return broken;
}

QStringList UntoldRoles(QWidget& window) {
  QStringList broken;
  ForEachThing(window, [&](QAccessibleInterface& thing) {
    QAccessibleActionInterface* const actions = thing.actionInterface();
    const bool pressed = actions != nullptr &&
                         actions->actionNames().contains(QAccessibleActionInterface::pressAction());
    if (!CanHaveFocus(thing) && !pressed) return;
    switch (thing.role()) {
      case QAccessible::NoRole:
      case QAccessible::Client:
      case QAccessible::Border:
      case QAccessible::Whitespace:
      case QAccessible::Window:
        broken << QStringLiteral("%1 does not say what it is").arg(NameOf(thing));
        break;
      default:
        break;
    }
  });
  return broken;
}

QStringList WordlessPictures(QWidget& window) {
  QStringList broken;
  ForEachThing(window, [&](QAccessibleInterface& thing) {
    const QString name = thing.text(QAccessible::Name);
    const bool picture =
        thing.role() == QAccessible::Graphic || thing.role() == QAccessible::Animation;
    const bool described = IsSpoken(name) || IsSpoken(thing.text(QAccessible::Description));
    if ((picture && !described) || (IsEntry(thing.role()) && !IsSpoken(name))) {
      broken << QStringLiteral("%1 has no words").arg(NameOf(thing));
    }
  });
  return broken;
}

QStringList IdleWords(QWidget& window) {
  static const QRegularExpression tag(QStringLiteral("</?[a-z]+( [a-z]+=[^>]*)?>"));
  QStringList broken;
  ForEachThing(window, [&](QAccessibleInterface& thing) {
    const QString name = thing.text(QAccessible::Name);
    const QString description = thing.text(QAccessible::Description);
    for (const QString& words : {name, description}) {
      if (words.contains(tag)) broken << QStringLiteral("%1 is told in markup").arg(NameOf(thing));
      if (words.endsWith(QStringLiteral("   "))) {
        broken << QStringLiteral("%1 ends in blanks").arg(NameOf(thing));
      }
    }
    const auto* const tool = qobject_cast<const QToolButton*>(thing.object());
    const bool ofAnAction = tool != nullptr && tool->defaultAction() != nullptr;
    if (IsSpoken(name) && name == description && !ofAnAction) {
      broken << QStringLiteral("%1 is told twice").arg(NameOf(thing));
    }
  });
  return broken;
}

QStringList SharedKeys(QWidget& window) {
  Bindings bindings;
  QStringList shared;
  for (const QWidget* const widget : VisibleWidgets(window)) {
    if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
      if (label->buddy() != nullptr) bindings.AddMnemonic(label->text(), NameOf(label));
    } else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      bindings.Add(button->shortcut(), NameOf(button));
    } else if (const auto* const box = qobject_cast<const QGroupBox*>(widget)) {
      bindings.AddMnemonic(box->title(), NameOf(box));
    } else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
      for (int i = 0; i < tabs->count(); ++i) {
        bindings.AddMnemonic(tabs->tabText(i), tabs->tabText(i));
      }
    } else if (const auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
      for (const QAction* const head : bar->actions()) {
        if (!head->isVisible()) continue;
        const QMenu* const menu = head->menu();
        const bool named = !head->objectName().isEmpty() || menu == nullptr;
        bindings.AddMnemonic(head->text(), named ? NameOf(head) : NameOf(menu));
        if (menu != nullptr) shared << SharedInMenu(*menu);
      }
    }
  }
  for (const QAction* const action : window.findChildren<QAction*>()) {
    for (const QKeySequence& keys : action->shortcuts()) bindings.Add(keys, NameOf(action));
  }
  for (const QShortcut* const shortcut : window.findChildren<QShortcut*>()) {
    bindings.Add(shortcut->key(), NameOf(shortcut));
  }
  return bindings.Shared() + shared;
}

QStringList BrokenTabOrder(QWidget& window) {
  const KeptFocus kept(window);
  QWidget* const first = FirstStation(window);
  if (first == nullptr) return {};
  const Widgets stations = Round(window, Qt::Key_Tab, first);
  Widgets wanted = VisibleWidgets(window);
  std::erase_if(wanted, [](const QWidget* widget) { return !IsStation(widget); });
  QStringList broken;
  for (QWidget* const widget : wanted) {
    const auto times = std::count(stations.begin(), stations.end(), widget);
    if (times != 1) {
      broken << QStringLiteral("Tab comes to %1 %2 times").arg(NameOf(widget)).arg(times);
    }
  }
  for (QWidget* const widget : stations) {
    if (std::find(wanted.begin(), wanted.end(), widget) == wanted.end()) {
      broken << QStringLiteral("Tab comes to %1, which is no station").arg(NameOf(widget));
    }
  }
  Widgets back = Round(window, Qt::Key_Backtab, first);
  std::reverse(back.begin() + 1, back.end());
  if (back != stations) {
    broken << QStringLiteral("Shift+Tab goes another way: %1 instead of %2")
                  .arg(NamesOf(back).join(u' '), NamesOf(stations).join(u' '));
  }
  return broken + AgainstReading(stations);
}

QStringList MouseOnlyControls(QWidget& window) {
  QStringList broken;
  for (QWidget* const widget : VisibleWidgets(window)) {
    if (!widget->isEnabled() || IsPart(widget)) continue;
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
      if (!IsStation(button) && !IsPressedByKey(*button) && !HasStationInGroup(*button)) {
        broken << QStringLiteral("no key comes to %1").arg(NameOf(widget));
      }
    } else if (const auto* const area = qobject_cast<const QAbstractScrollArea*>(widget)) {
      const bool scrolls =
          area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible();
      if (scrolls && area->focusPolicy() == Qt::NoFocus && !IsScrolledByKeys(window, *area)) {
        broken << QStringLiteral("no key scrolls %1").arg(NameOf(widget));
      }
    } else if (IsControlOfQt(widget) && widget->focusPolicy() != Qt::NoFocus &&
               widget->focusProxy() == nullptr && !IsStation(widget)) {
      broken << QStringLiteral("no key comes to %1").arg(NameOf(widget));
    } else if (!IsInsideFocusable(widget) && !IsControlOfQt(widget) && TakesMousePress(*widget)) {
      broken << QStringLiteral("only the mouse comes to %1").arg(NameOf(widget));
    }
  }
  return broken;
}

QStringList InvisibleFocus(QWidget& window) {
  const KeptFocus kept(window);
  QWidget* const first = FirstStation(window);
  if (first == nullptr) return {};
  const int flash = QApplication::cursorFlashTime();
  QApplication::setCursorFlashTime(0);  // a caret must not be just dark when it is looked at
  QStringList broken;
  const Widgets stations = Round(window, Qt::Key_Tab, first);
  for (QWidget* const station : stations) {
    const QImage focused = LookAt(window, station);
    if (stations.size() == 1) window.setFocus();
    Press(window, Qt::Key_Tab);
    if (stations.size() == 1) station->clearFocus();
    if (LookAt(window, station) == focused) {
      broken << QStringLiteral("%1 does not show that it has the focus").arg(NameOf(station));
    }
  }
  QApplication::setCursorFlashTime(flash);
  return broken;
}
