#include "windows/stacks/frmLoad.h"

#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "cards/UnsavableText.h"
#include "windows/frame/ElidedLabel.h"
#include "windows/frame/OneLine.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/ProgramFolders.h"
#include "windows/frame/QtText.h"
#include "windows/frame/ToolTips.h"
#include "windows/stacks/NameList.h"
#include "windows/stacks/frmDesc.h"
#include "windows/topics/frmConfig.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr TextView ParentFolder = u"..";

Text ParentOf(const Text& folder) {
  return ToText(QDir::cleanPath(ToQString(WithSeparator(folder)) + QStringLiteral("..")));
}

}  // namespace

frmLoad::frmLoad(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmLoad", shared, platform, owner),
      m_mode(shared.Switches.FileDialogMode),
      lblFile(Add<QLabel>(QStringLiteral("lblFile"))),
      txtActFile(Add<QLineEdit>(QStringLiteral("txtActFile"))),
      filStack(Add<NameList>(QStringLiteral("filStack"))),
      lblFolder(Add<ElidedLabel>(QStringLiteral("lblFolder"), Qt::ElideLeft)),
      dirDirectory(Add<NameList>(QStringLiteral("dirDirectory"))),
      drvDrives(Add<QComboBox>(QStringLiteral("drvDrives"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCancel(Add<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"))),
      cmdDesc(Add<QPushButton>(QStringLiteral("cmdDesc"), QStringLiteral("&Description"))),
      lblDesc(Add<QLabel>(QStringLiteral("lblDesc"))) {
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Load);
  connect(drvDrives, &QComboBox::activated, this, &frmLoad::drvDrives_Change);
  connect(dirDirectory, &NameList::Confirmed, this, &frmLoad::dirDirectory_Open);
  connect(filStack, &NameList::Chosen, this, &frmLoad::filStack_Click);
  connect(filStack, &NameList::Confirmed, this, &frmLoad::filStack_DblClick);
  KeepToOneLine(txtActFile);
  connect(txtActFile, &QLineEdit::textChanged, this, &frmLoad::txtActFile_Change);
  connect(cmdOK, &QPushButton::clicked, this, &frmLoad::cmdOK_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmLoad::cmdCancel_Click);
  connect(cmdDesc, &QPushButton::clicked, this, &frmLoad::cmdDesc_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdCancel);
  Form_Load();
}

void frmLoad::LayOut() {
  auto* const lblFolders = Add<QLabel>(QStringLiteral("lblFolders"), QStringLiteral("F&olders:"));
  auto* const lblDrives = Add<QLabel>(QStringLiteral("lblDrives"), QStringLiteral("&Places:"));
  lblFile->setBuddy(txtActFile);
  lblFolders->setBuddy(dirDirectory);
  lblDrives->setBuddy(drvDrives);
  filStack->setAccessibleName(QStringLiteral("Stack files"));
  dirDirectory->setAccessibleName(QStringLiteral("Folders"));
  lblDesc->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  lblDesc->setMargin(4);
  lblDesc->setAccessibleDescription(QStringLiteral("Description of the chosen file"));
  lblDesc->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  // Both lists are equally wide, whatever stands around them.
  for (NameList* const list : {filStack, dirDirectory}) {
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    list->setMinimumWidth(list->fontMetrics().averageCharWidth() * 28);
  }
  drvDrives->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(6);
  grid->addWidget(lblFile, 0, 0);
  grid->addWidget(txtActFile, 1, 0);
  grid->addWidget(filStack, 2, 0, 3, 1);
  grid->addWidget(lblFolders, 0, 1);
  grid->addWidget(lblFolder, 1, 1);
  grid->addWidget(dirDirectory, 2, 1);
  grid->addWidget(lblDrives, 3, 1);
  grid->addWidget(drvDrives, 4, 1);
  auto* const buttons = new QVBoxLayout;
  buttons->setSpacing(6);
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCancel);
  buttons->addSpacing(12);
  buttons->addWidget(cmdDesc);
  buttons->addStretch();
  grid->addLayout(buttons, 0, 2, 5, 1);
  grid->addWidget(lblDesc, 5, 0, 1, 3);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->addLayout(grid);
  SetTabOrder({txtActFile, filStack, dirDirectory, drvDrives, cmdOK, cmdCancel, cmdDesc});
  resize(sizeHint().expandedTo(QSize(640, 420)));
}

void frmLoad::Form_Load() {
  const FileDialogTexts texts = TextsOf(m_mode);
  setWindowTitle(ToQString(texts.caption));
  lblFile->setText(ToQString(texts.label));
  if (m_mode == FileDialogMode::SaveEdited) {
    ShowName(Text(TrimRight(m_shared.Stacks.Current().StackName)) + u".QBC");
  }
  FillDrives();
  FolderContent content;
  const Text folder = ToText(QDir(ToQString(m_shared.Switches.DefaultFolder)).absolutePath());
  m_folder =
      m_platform.files.List(folder, content) == FileStatus::Ok ? folder : ToText(QDir::homePath());
  (void)OpenFolder(m_folder);
  txtActFile->setFocus();
}

void frmLoad::FillDrives() {
  const auto add = [this](const QString& name, const QString& path) {
    if (!path.isEmpty() && QDir(path).exists()) drvDrives->addItem(name, path);
  };
  add(QStringLiteral("Home"), QDir::homePath());
  add(QStringLiteral("Documents"),
      QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  add(QStringLiteral("Samples"), SamplesFolder());
  add(QStringLiteral("File system"), QDir::rootPath());
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const QString path = volume.rootPath();
    const bool medium = path.startsWith(QStringLiteral("/media/")) ||
                        path.startsWith(QStringLiteral("/run/media/")) ||
                        path.startsWith(QStringLiteral("/mnt/"));
    if (medium && volume.isReady()) add(volume.displayName(), path);
  }
  drvDrives->setPlaceholderText(QStringLiteral("Go to..."));
}

bool frmLoad::OpenFolder(const Text& folder) {
  FolderContent content;
  const FileStatus status = m_platform.files.List(folder, content);
  if (status != FileStatus::Ok) {
    m_platform.prompts.Show(FileErrorPrompt(status));
    ShowPlace();
    return false;
  }
  m_folder = folder;
  FillLists(content);
  ShowPlace();
  return true;
}

void frmLoad::ShowPlace() {
  int place = -1;
  for (int i = 0; i < drvDrives->count(); ++i) {
    const auto pathOf = [this](int index) { return ToText(drvDrives->itemData(index).toString()); };
    const bool deeper = place < 0 || pathOf(i).size() > pathOf(place).size();
    if (deeper && LiesIn(m_folder, pathOf(i))) place = i;
  }
  drvDrives->setCurrentIndex(place);
}

void frmLoad::FillLists(const FolderContent& content) {
  const Text shown = ShownName(m_folder);
  lblFolder->setText(ToQString(shown));
  SetSilentToolTip(*lblFolder, shown);
  std::vector<Text> folders;
  if (m_folder != u"/") folders.emplace_back(ParentFolder);
  folders.insert(folders.end(), content.folders.begin(), content.folders.end());
  dirDirectory->SetNames(folders);
  std::vector<Text> files;
  const TextView pattern = TextsOf(m_mode).pattern;
  std::copy_if(content.files.begin(), content.files.end(), std::back_inserter(files),
               [&](const Text& name) { return MatchesPattern(name, pattern); });
  filStack->SetNames(files);
}

void frmLoad::drvDrives_Change(int index) {
  (void)OpenFolder(ToText(drvDrives->itemData(index).toString()));
}

void frmLoad::dirDirectory_Open(const Text& name) {
  const bool up = name == ParentFolder;
  const Text left(BaseName(m_folder));
  if (!OpenFolder(up ? ParentOf(m_folder) : WithSeparator(m_folder) + name)) return;
  dirDirectory->Choose(up ? left : Text(ParentFolder));
}

void frmLoad::ShowName(const Text& name) {
  m_shown = name;
  txtActFile->setText(ToQString(ShownName(name)));
}

void frmLoad::filStack_Click(const Text& name) { ShowName(name); }

void frmLoad::filStack_DblClick(const Text& name) {
  ShowName(name);
  cmdOK_Click();
}

void frmLoad::txtActFile_Change() {
  lblDesc->clear();
  // A row that stays marked beside another name would be what Enter in the list confirms.
  if (ToText(txtActFile->text()) != ShownName(m_shown)) filStack->Unchoose();
}

Text frmLoad::ChosenFile() {
  const Text typed(FirstLine(ToText(txtActFile->text())));
  // The name of a file that is there is taken as it is, whatever is in it.
  const Text name = typed == ShownName(m_shown) ? m_shown : Text(TrimBlanks(BaseName(typed)));
  if (!IsRefusedFileName(name)) return name;
  txtActFile->setFocus();
  return {};
}

FileStatus frmLoad::RunOperation(const Text& fileName) {
  StackStore& stacks = m_shared.Stacks;
  switch (m_mode) {
    case FileDialogMode::Load:
      return LoadStack(stacks, m_platform.files, m_platform.prompts, m_folder, fileName,
                       frmConfig::FileTopicCheck(m_shared, m_platform, this));
    case FileDialogMode::Delete: {
      const FileStatus status =
          DeleteStack(m_platform.files, m_platform.prompts, m_folder, fileName);
      if (status == FileStatus::Declined) txtActFile->clear();
      return status;
    }
    case FileDialogMode::SaveNew:
      m_shared.Switches.NewDescription = true;
      frmDesc(m_shared, m_platform, this).ShowModal();
      m_shared.Switches.NewDescription = false;
      break;
    case FileDialogMode::SaveEdited:
      break;
  }
  return SaveStack(stacks, m_platform.files, m_platform.prompts, m_folder, fileName, m_mode,
                   m_shared.Topics.Name(m_shared.Topics.CurrentTopic));
}

void frmLoad::cmdOK_Click() {
  const Text fileName = ChosenFile();
  if (fileName.empty()) return;
  const BusyPointer busy;
  m_shared.Stacks.Saves.rescueFolder.clear();
  const FileStatus status = RunOperation(fileName);
  m_shared.Switches.DefaultFolder = m_folder;
  switch (status) {
    case FileStatus::Ok:
      Unload();
      break;
    case FileStatus::Declined:
      break;  // the dialog stays and says nothing
    default:
      m_platform.prompts.Show(m_mode == FileDialogMode::SaveNew
                                  ? SaveErrorPrompt(status, m_shared.Stacks)
                                  : FileErrorPrompt(status, m_shared.Stacks.Saves.rescueFolder));
  }
}

void frmLoad::cmdDesc_Click() {
  const Text fileName = ChosenFile();
  if (fileName.empty()) return;
  Text description;
  const FileStatus status = ReadDescription(m_shared.Stacks, m_platform.files, m_platform.prompts,
                                            m_folder, fileName, description);
  lblDesc->setText(ToQString(description));
  if (status != FileStatus::Ok) m_platform.prompts.Show(FileErrorPrompt(status));
}
