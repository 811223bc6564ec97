#pragma once

#include "windows/frame/Form.h"

class ElidedLabel;
class NameList;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// The one dialog for choosing a stack file, to load, delete or save it; FileDialogMode says which.
class frmLoad : public Form {
  Q_OBJECT

 public:
  frmLoad(SharedState& shared, Platform& platform, QWidget* owner);

 private:
  Text SizeName() const override { return u"Load"; }

  void LayOut();
  void Form_Load();
  void FillDrives();
  /// Moves the folder list; a folder that cannot be listed leaves it where it is and says why.
  /// @return true when the folder is open
  bool OpenFolder(const Text& folder);
  void FillLists(const FolderContent& content);
  /// Lets Places show the one that the folder lies in most closely.
  void ShowPlace();

  void drvDrives_Change(int index);
  void dirDirectory_Open(const Text& name);
  void filStack_Click(const Text& name);
  void filStack_DblClick(const Text& name);
  void txtActFile_Change();
  void cmdOK_Click();
  void cmdCancel_Click() { Unload(); }
  void cmdDesc_Click();

  /// Puts a name on disk into the name box, as it is shown on one line.
  void ShowName(const Text& name);
  /// The file that the name box stands for, or an empty text, and then the focus is back in the
  /// box.
  Text ChosenFile();
  FileStatus RunOperation(const Text& fileName);

  FileDialogMode m_mode;
  Text m_folder;  // the path of the folder list
  Text m_shown;   // the name on disk that was put into the name box last

  QLabel* lblFile;
  QLineEdit* txtActFile;
  NameList* filStack;
  ElidedLabel* lblFolder;
  NameList* dirDirectory;
  QComboBox* drvDrives;
  QPushButton* cmdOK;
  QPushButton* cmdCancel;
  QPushButton* cmdDesc;
  QLabel* lblDesc;
};
