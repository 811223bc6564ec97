#pragma once

#include "shell/Form.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The one dialog for choosing a stack file, to load, delete or save it; FileDialogMode says which.
class frmLoad : public Form {
  Q_OBJECT

 public:
  frmLoad(SharedState& shared, Platform& platform, QWidget* owner);

 private:
  void LayOut();
  void Form_Load();
  void FillDrives();
  /// Moves the folder list; a folder that cannot be listed leaves it where it is and says why.
  void OpenFolder(const Text& folder);
  void FillLists(const FolderContent& content);

  void drvDrives_Change(int index);
  void dirDirectory_Open(QListWidgetItem* item);
  void filStack_Click(QListWidgetItem* item);
  void txtActFile_Change();
  void cmdOK_Click();
  void cmdCancel_Click() { Unload(); }
  void cmdDesc_Click();

  /// The base name in the name box, or an empty text, and then the focus is back in the box.
  Text ChosenFile();
  FileStatus RunOperation(const Text& fileName);

  FileDialogMode m_mode;
  Text m_folder;  // the path of the folder list

  QLabel* lblFile;
  QLineEdit* txtActFile;
  QListWidget* filStack;
  QLabel* lblFolder;
  QListWidget* dirDirectory;
  QComboBox* drvDrives;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdDesc;
  QLabel* lblDesc;
};
