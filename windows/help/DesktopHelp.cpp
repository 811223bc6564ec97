#include "windows/help/DesktopHelp.h"

#include "base/Paths.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/help/HelpBook.h"
#include "windows/help/frmHelp.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

DesktopHelp::DesktopHelp(Prompts& prompts, RememberedState& state, std::vector<Text> places)
    : m_prompts(prompts), m_state(state), m_places(std::move(places)) {}

DesktopHelp::~DesktopHelp() = default;

void DesktopHelp::Show(HelpContext context) {
  if (m_viewer == nullptr && !Open()) return;
  m_viewer->ShowPage(context);
}

bool DesktopHelp::Open() {
  const auto file = std::find_if(m_places.begin(), m_places.end(), [](const Text& place) {
    return QFileInfo(ToQString(place)).isFile();
  });
  if (file == m_places.end()) {
    m_prompts.Show(MissingHelpPrompt(m_places.front()));
    return false;
  }
  const BusyPointer busy;
  m_book = std::make_unique<HelpBook>(ToQString(*file));
  if (!m_book->IsOpen()) {
    m_book.reset();
    m_prompts.Show(
        {.text = u"The help file can't be read:\r\n" + *file, .icon = PromptIcon::Exclamation});
    return false;
  }
  m_viewer = std::make_unique<frmHelp>(*m_book, m_state);
  return true;
}

std::vector<Text> HelpFilePlaces(const Text& programFolder) {
  const QDir program(ToQString(programFolder));
  const QString shared = program.filePath(QStringLiteral("../share/quibcards"));
  return {WithSeparator(programFolder).append(HelpFileName),
          WithSeparator(ToText(QDir::cleanPath(shared))).append(HelpFileName)};
}
