#pragma once

#include "printing/PrintLayout.h"
#include "windows/frame/Form.h"
#include "windows/printing/PrintingServices.h"

#include <array>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// Fonts and sizes of the two sides, to print the selected stack with or to display the cards of a
/// topic in; PrintMode says which.
class frmPrint : public Form {
  Q_OBJECT

 public:
  frmPrint(SharedState& shared, Platform& platform, QWidget* owner,
           PrintingServices services = DesktopPrintingServices());

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void Form_Unload() override;

 private:
  Text SizeName() const override { return m_printing ? u"Print" : u"Fonts"; }

  struct SideControls {
    QLabel* lblFont;
    QComboBox* cboFont;
    QLabel* lblSize;
    QLineEdit* txtSize;
    QLabel* lblPreview;
  };

  void LayOut();
  void LayOutSide(const SideControls& side, QGroupBox* box);
  void Form_Load();
  void FillFontLists();

  void cboFont_Click(int side);
  void txtSize_LostFocus(int side);
  void txtMargin_LostFocus();
  void cmdOK_Click();
  void cmdCanc_Click() { Unload(); }

  SideControls ControlsOf(int side) const;
  Text ChosenFont(int side) const;
  bool IsOnScreen(TextView font) const;
  void ShowPreviewFont(int side, float size);
  /// Takes the fields as if each had been left.
  void RepairFields();
  void StoreFonts();
  PrintSettings ChosenSettings() const;
  FileStatus PrintCurrentStack();

  const bool m_printing;
  PrintingServices m_services;
  std::vector<Text> m_screenFonts;
  std::array<float, 2> m_shownSize{};  // points, of the previews

  QLabel* imgPrint;
  QLabel* imgFont;
  QLabel* sspAction;
  QLabel* lblFrontFont;
  QComboBox* cboFrontFont;
  QLabel* lblFSize;
  QLineEdit* txtFSize;
  QLabel* lblPreFront;
  QLabel* lblBackFont;
  QComboBox* cboBackFont;
  QLabel* lblBSize;
  QLineEdit* txtBSize;
  QLabel* lblPreBack;
  QLabel* lblMargin;
  QLineEdit* txtMargin;
  QLabel* lblMarginUnit;
  QPushButton* cmdOK;
  QPushButton* cmdCanc;
};
