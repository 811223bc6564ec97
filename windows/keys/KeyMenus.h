#pragma once

#include "keys/KeyPickers.h"

#include <QObject>
#include <QPointer>

#include <array>
#include <functional>

class CardField;
class Form;
class QAction;
class QMenu;
class QMenuBar;
struct Platform;
struct SharedState;
struct TopicSettings;

/// What stands in a window's menu bar for a side whose font is not the default font, in which menus
/// are drawn: its characters could not be told apart there.
enum class KeyMenuStyle {
  CardWindow,   ///< with assignments, the head opens the assignment picker; without, it is a menu
  StudyWindow,  ///< the side has no head at all
};

/// The menus "Front Keys" and "Back Keys" of a window with card text fields. Their heads are
/// "mnuFKeysHead" and "mnuBKeysHead", their items "mnuFKeys(i)" and "mnuBKeys(i)" with the slot
/// number for i and "More Keys..." for 0.
class KeyMenus : public QObject {
  Q_OBJECT

 public:
  /// Adds the heads behind what is in `bar`, builds the items and disables both heads.
  /// @param bar    owns this object from now on
  /// @param topic  fonts and keys; must live as long as `bar`. A study window gives its copy.
  KeyMenus(QMenuBar* bar, KeyMenuStyle style, const TopicSettings& topic, SharedState& shared,
           Platform& platform);

  /// A field that characters may go to. Of several, the one that had the focus last gets them.
  void AddField(CardField* field);

  /// The same for the field of one side, whose menu can be opened while that field has the focus.
  void AddSideField(CardField* field, KeySide side);

  /// Builds heads and items anew: after a change of the topic, and when the window is activated.
  void Rebuild();

  /// Whether a side's menu can be opened: while one of its fields has the focus.
  void SetEnabled(KeySide side, bool enabled);

  /// Types the character of slot `index`, or for 0 the one that the code chart gives. A slot that
  /// is not in use types nothing.
  void KeyMenuChosen(int index, KeySide side);

  /// Types the character that the assignment picker gives.
  void KeyHeadChosen(KeySide side);

 private:
  struct Menu {
    QAction* head = nullptr;
    QMenu* items = nullptr;
  };

  Menu& MenuOf(KeySide side) { return m_menus[side == KeySide::Front ? 0 : 1]; }
  void AddHead(KeySide side);
  void Rebuild(KeySide side);
  static void Clear(QMenu& items);
  void AddItem(KeySide side, int index, const QString& caption);
  void Pick(KeySide side, const std::function<Form*()>& makePicker);
  void TypeChosen();

  QMenuBar* m_bar;
  KeyMenuStyle m_style;
  const TopicSettings& m_topic;
  SharedState& m_shared;
  Platform& m_platform;
  std::array<Menu, 2> m_menus;
  QPointer<CardField> m_field;
};
