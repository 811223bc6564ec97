#include "windows/help/frmHelp.h"

#include "base/Version.h"
#include "windows/frame/KeptSize.h"
#include "windows/frame/QtText.h"
#include "windows/help/HelpBook.h"

#include <QAction>
#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include <cmath>

namespace {

constexpr double ReadableContrast = 4.5;  // WCAG 2, level AA
constexpr int AddressRole = Qt::UserRole;

/// Shows pages out of the help file.
class PageBrowser : public QTextBrowser {
 public:
  PageBrowser(const HelpBook& book, QWidget* owner) : QTextBrowser(owner), m_book(book) {}

  QVariant loadResource(int type, const QUrl& name) override {
    const QUrl address = source().isEmpty() ? name : source().resolved(name);
    const QByteArray content = m_book.Data(address);
    if (!content.isEmpty() || type != QTextDocument::HtmlResource) return content;
    return QStringLiteral("<h1>Page not found</h1><p>The help file has no page at %1.</p>")
        .arg(address.toString().toHtmlEscaped());
  }

 private:
  const HelpBook& m_book;
};

/// Relative luminance as WCAG 2 defines it.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const double one = Luminance(a);
  const double other = Luminance(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

/// The entry of the contents that leads to an address; inside a chapter rather than the chapter
/// itself, which leads to its first page.
QModelIndex FindEntry(const QHelpContentModel& contents, const QModelIndex& parent,
                      const QUrl& address) {
  for (int row = 0; row < contents.rowCount(parent); ++row) {
    const QModelIndex index = contents.index(row, 0, parent);
    if (const QModelIndex inside = FindEntry(contents, index, address); inside.isValid()) {
      return inside;
    }
    if (contents.contentItemAt(index)->url() == address) return index;
  }
  return {};
}

}  // namespace

frmHelp::frmHelp(HelpBook& book, RememberedState& state)
    : QWidget(nullptr, Qt::Window),
      m_book(book),
      m_state(state),
      sspCommands(new QToolBar(this)),
      sspSides(new QTabWidget(this)),
      lstContents(book.Engine().contentWidget()),
      txtIndex(new QLineEdit(this)),
      lstIndex(book.Engine().indexWidget()),
      txtSearch(new QLineEdit(this)),
      lstFound(new QListWidget(this)),
      txtPage(new PageBrowser(book, this)) {
  setObjectName(QStringLiteral("frmHelp"));
  setAttribute(Qt::WA_QuitOnClose, false);
  txtPage->setObjectName(QStringLiteral("txtPage"));
  txtPage->setAccessibleName(QStringLiteral("Help page"));
  SetLinkColour();
  LayOut();
  AddShortcuts();
  connect(txtPage, &QTextBrowser::sourceChanged, this, &frmHelp::Page_Changed);
  connect(book.Engine().contentModel(), &QHelpContentModel::contentsCreated, this,
          &frmHelp::SelectInContents);
  // A modal window that opens or closes moves the focus.
  connect(qApp, &QGuiApplication::focusWindowChanged, this, &frmHelp::FollowModalWindow);
}

void frmHelp::LayOut() {
  MakeToolBar();
  sspSides->setObjectName(QStringLiteral("sspSides"));
  m_contentsTab = MakeContentsTab();
  m_indexTab = MakeIndexTab();
  m_searchTab = MakeSearchTab();
  sspSides->addTab(m_contentsTab, QStringLiteral("&Contents"));
  sspSides->addTab(m_indexTab, QStringLiteral("&Index"));
  sspSides->addTab(m_searchTab, QStringLiteral("&Search"));
  auto* const parts = new QSplitter(this);
  parts->addWidget(sspSides);
  parts->addWidget(txtPage);
  parts->setStretchFactor(1, 1);
  parts->setChildrenCollapsible(false);
  // The contents and the index were made before all else.
  QWidget* before = sspSides->tabBar();
  for (QWidget* const next : std::initializer_list<QWidget*>{lstContents, txtIndex, lstIndex,
                                                             txtSearch, lstFound, txtPage}) {
    setTabOrder(before, next);
    before = next;
  }
  const int unit = fontMetrics().averageCharWidth();
  parts->setSizes({unit * 46, unit * 92});
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 6, 6, 6);
  column->addWidget(sspCommands);
  column->addWidget(parts, 1);
  resize(unit * 138, fontMetrics().height() * 36);
}

QAction* frmHelp::AddCommand(const char* name, const QString& caption,
                             QKeySequence::StandardKey key, const QString& symbol) {
  QAction* const action = sspCommands->addAction(symbol + caption);
  action->setObjectName(QLatin1String(name));
  if (key != QKeySequence::UnknownKey) action->setShortcuts(key);
  action->setToolTip(caption);
  return action;
}

void frmHelp::MakeToolBar() {
  sspCommands->setObjectName(QStringLiteral("sspCommands"));
  sspCommands->setToolButtonStyle(Qt::ToolButtonTextOnly);
  QAction* const back =
      AddCommand("mnuBack", QStringLiteral("Back"), QKeySequence::Back, QStringLiteral("\u2190 "));
  QAction* const forward = AddCommand("mnuForward", QStringLiteral("Forward"),
                                      QKeySequence::Forward, QStringLiteral("\u2192 "));
  QAction* const start =
      AddCommand("mnuStart", QStringLiteral("Start Page"), QKeySequence::UnknownKey, QString());
  start->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(back, &QAction::triggered, txtPage, &QTextBrowser::backward);
  connect(forward, &QAction::triggered, txtPage, &QTextBrowser::forward);
  connect(txtPage, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(txtPage, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  connect(start, &QAction::triggered, this,
          [this] { OpenPage(m_book.PageOf(HelpContext::Index)); });
}

QWidget* frmHelp::MakeContentsTab() {
  lstContents->setObjectName(QStringLiteral("lstContents"));
  lstContents->setAccessibleName(QStringLiteral("Contents"));
  connect(lstContents, &QHelpContentWidget::linkActivated, this, &frmHelp::OpenPage);
  connect(lstContents, &QTreeView::clicked, this, [this](const QModelIndex& index) {
    if (const auto* const entry = m_book.Engine().contentModel()->contentItemAt(index)) {
      OpenPage(entry->url());
    }
  });
  return lstContents;
}

QWidget* frmHelp::MakeIndexTab() {
  auto* const tab = new QWidget(this);
  txtIndex->setObjectName(QStringLiteral("txtIndex"));
  txtIndex->setPlaceholderText(QStringLiteral("Look for"));
  txtIndex->setAccessibleName(QStringLiteral("Look for in the index"));
  txtIndex->setClearButtonEnabled(true);
  txtIndex->installEventFilter(this);
  lstIndex->setObjectName(QStringLiteral("lstIndex"));
  lstIndex->setAccessibleName(QStringLiteral("Index"));
  connect(txtIndex, &QLineEdit::textChanged, this,
          [this](const QString& text) { lstIndex->filterIndices(text); });
  connect(txtIndex, &QLineEdit::returnPressed, lstIndex, &QHelpIndexWidget::activateCurrentItem);
  connect(lstIndex, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& page) { OpenPage(page.url); });
  connect(lstIndex, &QListView::clicked, lstIndex, &QHelpIndexWidget::activateCurrentItem);
  auto* const column = new QVBoxLayout(tab);
  column->addWidget(txtIndex);
  column->addWidget(lstIndex, 1);
  return tab;
}

QWidget* frmHelp::MakeSearchTab() {
  auto* const tab = new QWidget(this);
  txtSearch->setObjectName(QStringLiteral("txtSearch"));
  txtSearch->setPlaceholderText(QStringLiteral("Words on the page"));
  txtSearch->setAccessibleName(QStringLiteral("Search for words"));
  txtSearch->setClearButtonEnabled(true);
  txtSearch->installEventFilter(this);
  lstFound->setObjectName(QStringLiteral("lstFound"));
  lstFound->setAccessibleName(QStringLiteral("Pages found"));
  lstFound->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);  // long titles end in dots
  auto* const lblNothing = new QLabel(QStringLiteral("No page has these words."), tab);
  lblNothing->setObjectName(QStringLiteral("lblNothing"));
  lblNothing->setWordWrap(true);
  lblNothing->hide();
  connect(txtSearch, &QLineEdit::textChanged, this, [this, lblNothing](const QString& words) {
    SearchFor(words);
    lblNothing->setVisible(lstFound->count() == 0 && !words.trimmed().isEmpty());
  });
  connect(txtSearch, &QLineEdit::returnPressed, this, [this] {
    if (QListWidgetItem* const item = lstFound->currentItem()) OpenFound(item);
  });
  connect(lstFound, &QListWidget::itemActivated, this, &frmHelp::OpenFound);
  connect(lstFound, &QListWidget::itemClicked, this, &frmHelp::OpenFound);
  auto* const column = new QVBoxLayout(tab);
  column->addWidget(txtSearch);
  column->addWidget(lblNothing);
  column->addWidget(lstFound, 1);
  return tab;
}

void frmHelp::AddShortcuts() {
  const auto add = [this](const QKeySequence& keys, const auto& act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
  };
  add(QKeySequence::HelpContents, [this] { OpenPage(m_book.PageOf(HelpContext::UsingHelp)); });
  add(QKeySequence::Find, [this] { ShowTab(m_searchTab, txtSearch); });
  add(QKeySequence::ZoomIn, [this] { txtPage->zoomIn(); });
  add(QKeySequence::ZoomOut, [this] { txtPage->zoomOut(); });
  add(QKeySequence(Qt::Key_Escape), [this] { close(); });
}

void frmHelp::ShowTab(QWidget* tab, QWidget* field) {
  sspSides->setCurrentWidget(tab);
  field->setFocus();
}

void frmHelp::ShowPage(HelpContext context) {
  OpenPage(m_book.PageOf(context));
  if (isMinimized()) showNormal();
  show();
  FollowModalWindow();
  raise();
  activateWindow();
  txtPage->setFocus();
}

void frmHelp::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!m_placed) new KeptSize(this, m_state, u"Help");
  m_placed = true;
}

void frmHelp::OpenPage(const QUrl& address) {
  if (address != txtPage->source()) txtPage->setSource(address);
}

void frmHelp::Page_Changed(const QUrl& address) {
  m_shown = address;  // the browser itself still names the page before
  const QString help = ToQString(ProgramName) + QStringLiteral(" Help");
  const QString title = txtPage->documentTitle();
  setWindowTitle(title == help ? help : title + QStringLiteral(" - ") + help);
  SelectInContents();
}

void frmHelp::SelectInContents() {
  const QHelpContentModel& contents = *m_book.Engine().contentModel();
  if (contents.isCreatingContents()) return;  // it comes back when they are there
  QModelIndex entry = FindEntry(contents, {}, m_shown);
  if (!entry.isValid()) {
    entry = FindEntry(contents, {}, m_shown.adjusted(QUrl::RemoveFragment));
  }
  for (int row = 0; row < contents.rowCount(); ++row) lstContents->expand(contents.index(row, 0));
  lstContents->setCurrentIndex(entry);
}

void frmHelp::SearchFor(const QString& words) {
  lstFound->clear();
  for (const HelpBook::FoundPage& page : m_book.Search(words)) {
    auto* const item = new QListWidgetItem(page.title, lstFound);
    item->setData(AddressRole, page.address);
    item->setToolTip(PlainToolTip(ToText(page.title)));
  }
  lstFound->setCurrentRow(0);
}

void frmHelp::OpenFound(QListWidgetItem* item) {
  OpenPage(item->data(AddressRole).toUrl());
  txtPage->moveCursor(QTextCursor::Start);
  txtPage->find(txtSearch->text().section(u' ', 0, 0, QString::SectionSkipEmpty));
}

// A modal window blocks every window but itself and those that belong to it, so the viewer always
// belongs to the modal window on top. Only the window system's parent is changed: as the dialog's
// child the viewer would be destroyed with it.
void frmHelp::FollowModalWindow() {
  QWindow* const ours = windowHandle();
  if (ours == nullptr) return;  // not shown yet
  const QWidget* const modal = QApplication::activeModalWidget();
  QWindow* const owner = modal == nullptr ? nullptr : modal->windowHandle();
  if (owner != ours->transientParent()) ours->setTransientParent(owner);
}

/// A desktop's dark colours may leave links as dark as the page; they are underlined anyway.
void frmHelp::SetLinkColour() {
  const QColor page = palette().color(QPalette::Base);
  const QColor link = palette().color(QPalette::Link);
  const bool readable = Contrast(link, page) >= ReadableContrast;
  const QColor colour = readable ? link : palette().color(QPalette::Text);
  txtPage->document()->setDefaultStyleSheet(QStringLiteral("a { color: %1 }").arg(colour.name()));
}

void frmHelp::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || txtPage == nullptr) return;
  SetLinkColour();
  txtPage->reload();
}

bool frmHelp::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) {
    // The modal window is not up yet.
    QMetaObject::invokeMethod(this, &frmHelp::FollowModalWindow, Qt::QueuedConnection);
  }
  return QWidget::event(event);
}

bool frmHelp::eventFilter(QObject* watched, QEvent* event) {
  // Up and down in a search field move in the list below it.
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    QWidget* const list = watched == txtIndex ? static_cast<QWidget*>(lstIndex) : lstFound;
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown) {
      return QApplication::sendEvent(list, event);
    }
  }
  return QWidget::eventFilter(watched, event);
}
