#pragma once

#include "program/HelpContexts.h"

#include <QUrl>
#include <QWidget>

class HelpBook;
class RememberedState;
class QAction;
class QHelpContentWidget;
class QHelpIndexWidget;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTabWidget;
class QTextBrowser;
class QToolBar;

/// The help viewer: contents, index and search beside the page. It stands beside the program's
/// windows and can be used while a modal one is open. It is no Form, as it works on the help file
/// alone.
class frmHelp : public QWidget {
  Q_OBJECT

 public:
  /// @param book  stays open as long as the viewer lives
  frmHelp(HelpBook& book, RememberedState& state);

  /// Shows the viewer, brought to the front, on the page of a context.
  void ShowPage(HelpContext context);

  /// Shows the page at an address inside the help file.
  void OpenPage(const QUrl& address);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void LayOut();
  void MakeToolBar();
  QWidget* MakeContentsTab();
  QWidget* MakeIndexTab();
  QWidget* MakeSearchTab();
  void AddShortcuts();
  QAction* AddCommand(const char* name, const QString& caption, QKeySequence::StandardKey key,
                      const QString& symbol);
  void FollowModalWindow();
  void SetLinkColour();
  void SelectInContents();
  void SearchFor(const QString& words);
  void OpenFound(QListWidgetItem* item);
  void Page_Changed(const QUrl& address);
  void ShowTab(QWidget* tab, QWidget* field);

  HelpBook& m_book;
  RememberedState& m_state;
  QToolBar* sspCommands;
  QTabWidget* sspSides;
  QHelpContentWidget* lstContents;
  QLineEdit* txtIndex;
  QHelpIndexWidget* lstIndex;
  QLineEdit* txtSearch;
  QListWidget* lstFound;
  QTextBrowser* txtPage;
  QUrl m_shown;
  bool m_placed = false;
  QWidget* m_contentsTab = nullptr;
  QWidget* m_indexTab = nullptr;
  QWidget* m_searchTab = nullptr;
};
