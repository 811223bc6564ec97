#include "cards/frmLoad.h"

#include "authoring/frmDesc.h"
#include "base/Paths.h"
#include "base/QtText.h"
#include "cards/StackFileOperations.h"
#include "settings/frmConfig.h"
#include "shell/Pointer.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QVBoxLayout>

namespace {

constexpr TextView ParentFolder = u"..";

/// The installed samples, or those of the source tree that the program was built in.
QString SamplesFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const char* const place : {"../share/quibcards/samples", "samples", "../samples",
                                  "../../samples", "../../../samples"}) {
    const QString path = QDir::cleanPath(program.filePath(QLatin1String(place)));
    if (QDir(path).exists()) return path;
  }
  return {};
}

Text ParentOf(const Text& folder) {
  return ToText(QDir::cleanPath(ToQString(WithSeparator(folder)) + QStringLiteral("..")));
}

}  // namespace

frmLoad::frmLoad(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmLoad", shared, platform, owner),
      m_mode(shared.Switches.FileDialogMode),
      lblFile(Add<QLabel>(QStringLiteral("lblFile"))),
      txtActFile(Add<QLineEdit>(QStringLiteral("txtActFile"))),
      filStack(Add<QListWidget>(QStringLiteral("filStack"))),
      lblFolder(Add<QLabel>(QStringLiteral("lblFolder"))),
      dirDirectory(Add<QListWidget>(QStringLiteral("dirDirectory"))),
      drvDrives(Add<QComboBox>(QStringLiteral("drvDrives"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCancel(Add<QPushButton>(QStringLiteral("cmdCancel"), QStringLiteral("&Cancel"))),
      cmdDesc(Add<QPushButton>(QStringLiteral("cmdDesc"), QStringLiteral("&Description"))),
      lblDesc(Add<QLabel>(QStringLiteral("lblDesc"))) {
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Load);
  connect(drvDrives, &QComboBox::activated, this, &frmLoad::drvDrives_Change);
  connect(dirDirectory, &QListWidget::itemActivated, this, &frmLoad::dirDirectory_Open);
  connect(filStack, &QListWidget::itemClicked, this, &frmLoad::filStack_Click);
  connect(filStack, &QListWidget::currentItemChanged, this, &frmLoad::filStack_Click);
  connect(filStack, &QListWidget::itemActivated, this, &frmLoad::cmdOK_Click);
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
  lblFolder->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblDesc->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  lblDesc->setMargin(4);
  lblDesc->setAccessibleDescription(QStringLiteral("Description of the chosen file"));
  lblDesc->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  // Both lists are equally wide, whatever stands around them.
  for (QListWidget* const list : {filStack, dirDirectory}) {
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
    txtActFile->setText(ToQString(Text(TrimRight(m_shared.Stacks.Current().StackName)) + u".QBC"));
  }
  FillDrives();
  FolderContent content;
  const Text folder = ToText(QDir(ToQString(m_shared.Switches.DefaultFolder)).absolutePath());
  m_folder =
      m_platform.files.List(folder, content) == FileStatus::Ok ? folder : ToText(QDir::homePath());
  OpenFolder(m_folder);
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
  drvDrives->setCurrentIndex(-1);
  drvDrives->setPlaceholderText(QStringLiteral("Go to..."));
}

void frmLoad::OpenFolder(const Text& folder) {
  FolderContent content;
  const FileStatus status = m_platform.files.List(folder, content);
  if (status != FileStatus::Ok) {
    m_platform.prompts.Show(FileErrorPrompt(status));
    return;
  }
  m_folder = folder;
  FillLists(content);
}

void frmLoad::FillLists(const FolderContent& content) {
  lblFolder->setText(ToQString(m_folder));
  lblFolder->setToolTip(ToQString(m_folder));
  dirDirectory->clear();
  if (m_folder != u"/") dirDirectory->addItem(ToQString(ParentFolder));
  for (const Text& name : content.folders) dirDirectory->addItem(ToQString(name));
  filStack->clear();
  for (const Text& name : content.files) {
    if (MatchesPattern(name, TextsOf(m_mode).pattern)) filStack->addItem(ToQString(name));
  }
}

void frmLoad::drvDrives_Change(int index) {
  OpenFolder(ToText(drvDrives->itemData(index).toString()));
}

void frmLoad::dirDirectory_Open(QListWidgetItem* item) {
  const Text name = ToText(item->text());
  OpenFolder(name == ParentFolder ? ParentOf(m_folder) : WithSeparator(m_folder) + name);
  dirDirectory->setCurrentRow(0);
}

void frmLoad::filStack_Click(QListWidgetItem* item) {
  if (item != nullptr) txtActFile->setText(item->text());
}

void frmLoad::txtActFile_Change() { lblDesc->clear(); }

Text frmLoad::ChosenFile() {
  const Text typed(FirstLine(ToText(txtActFile->text())));
  const Text name(BaseName(typed));
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
  const FileStatus status = RunOperation(fileName);
  m_shared.Switches.DefaultFolder = m_folder;
  switch (status) {
    case FileStatus::Ok:
      Unload();
      break;
    case FileStatus::Declined:
      break;  // the dialog stays and says nothing
    default:
      m_platform.prompts.Show(FileErrorPrompt(status));
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
