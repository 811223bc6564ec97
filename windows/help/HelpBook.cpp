#include "windows/help/HelpBook.h"

#include "windows/frame/QtText.h"

#include <QHelpContentModel>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QTextDocument>
#include <QThread>

HelpBook::HelpBook(const QString& helpFile) {
  const QString collection = m_folder.filePath(QStringLiteral("help.qhc"));
  {
    // The contents and the index are read when an engine is set up, so the file has to be
    // registered before.
    QHelpEngineCore registering(collection);
    registering.setReadOnly(false);
    m_open = registering.setupData() && registering.registerDocumentation(helpFile);
  }
  m_engine = std::make_unique<QHelpEngine>(collection);
  m_engine->setReadOnly(false);
  m_open = m_engine->setupData() && m_open;
}

HelpBook::~HelpBook() {
  // Two threads of the engine read the contents and the index. If it went while they do, they would
  // be broken off, and Qt 6.4 then frees what is not theirs. They take some milliseconds.
  while (m_engine->contentModel()->isCreatingContents() ||
         m_engine->indexModel()->isCreatingIndex()) {
    QThread::msleep(1);
  }
}

QUrl HelpBook::PageOf(HelpContext context) const {
  const QString number = QString::number(static_cast<int>(context));
  const QList<QHelpLink> pages = m_engine->documentsForIdentifier(number);
  return pages.isEmpty() ? QUrl() : pages.first().url;
}

QByteArray HelpBook::Data(const QUrl& address) const { return m_engine->fileData(address); }

void HelpBook::ReadPages() {
  for (const QString& name : m_engine->registeredDocumentations()) {
    for (const QUrl& address : m_engine->files(name, QString(), QStringLiteral("html"))) {
      QTextDocument page;
      page.setHtml(QString::fromUtf8(Data(address)));
      m_pages.push_back(
          {ToText(page.metaInformation(QTextDocument::DocumentTitle)), ToText(page.toPlainText())});
      m_addresses.push_back(address);
    }
  }
}

std::vector<HelpBook::FoundPage> HelpBook::Search(const QString& words) {
  if (m_pages.empty()) ReadPages();
  std::vector<FoundPage> found;
  for (const std::size_t i : FindHelpPages(m_pages, ToText(words.simplified()))) {
    found.push_back({ToQString(m_pages[i].title), m_addresses[i]});
  }
  return found;
}
