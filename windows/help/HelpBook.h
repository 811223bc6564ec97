#pragma once

#include "program/HelpContexts.h"
#include "program/HelpSearch.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <vector>

class QHelpEngine;

/// An open help file. Its register of pages lies in a temporary folder as long as the book lives.
class HelpBook {
 public:
  explicit HelpBook(const QString& helpFile);
  ~HelpBook();
  HelpBook(const HelpBook&) = delete;
  HelpBook& operator=(const HelpBook&) = delete;

  /// False when the file could not be read; the book then has no pages.
  bool IsOpen() const { return m_open; }

  /// The page of a context; an empty address when the file has none.
  QUrl PageOf(HelpContext context) const;

  /// What stands at an address inside the file; nothing when the file does not have it.
  QByteArray Data(const QUrl& address) const;

  /// The pages that hold all of the words, the best first.
  struct FoundPage {
    QString title;
    QUrl address;
  };
  std::vector<FoundPage> Search(const QString& words);

  /// Makes the contents tree and the index.
  QHelpEngine& Engine() const { return *m_engine; }

 private:
  void ReadPages();

  QTemporaryDir m_folder;
  std::unique_ptr<QHelpEngine> m_engine;
  bool m_open = false;
  std::vector<QUrl> m_addresses;  // of m_pages; read at the first search
  std::vector<HelpPageText> m_pages;
};
