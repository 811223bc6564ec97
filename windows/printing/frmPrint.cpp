#include "windows/printing/frmPrint.h"

#include "base/LetterCase.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/Icons.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/frame/ToolTips.h"
#include "windows/printing/StackPrinter.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QStringListModel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr float LargestPreview = 32;  // points
constexpr float EveryFontShows = 8;   // points, and all sizes above

/// A key that types a character, rather than one that moves or commands.
bool TypesCharacter(const QKeyEvent& event) {
  const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
  return !command && !event.text().isEmpty() && event.text().at(0).isPrint();
}

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// Lets nothing but these characters in, whether typed or pasted.
void AcceptOnly(QLineEdit* field, const QString& characters) {
  field->setValidator(new QRegularExpressionValidator(QRegularExpression(characters), field));
}

/// Adds a name where the alphabet has it; the other names keep their order.
void AddFontName(std::vector<Text>& names, const Text& name) {
  if (std::find(names.begin(), names.end(), name) != names.end()) return;
  const Text key = UpperCase(name);
  const auto place = std::find_if(names.begin(), names.end(),
                                  [&](const Text& other) { return UpperCase(other) > key; });
  names.insert(place, name);
}

/// The file name that is proposed for a stack's pages.
QString PdfName(const CardStack& stack) {
  const Text name = Text(TrimRight(stack.StackName));
  return ToQString(TextView(name).substr(0, name.rfind(u'.'))) + QStringLiteral(".pdf");
}

}  // namespace

frmPrint::frmPrint(SharedState& shared, Platform& platform, QWidget* owner,
                   PrintingServices services)
    : Form("frmPrint", shared, platform, owner),
      m_printing(shared.Switches.PrintMode),
      m_services(std::move(services)),
      imgPrint(Add<QLabel>(QStringLiteral("imgPrint"))),
      imgFont(Add<QLabel>(QStringLiteral("imgFont"))),
      sspAction(Add<QLabel>(QStringLiteral("sspAction"))),
      lblFrontFont(Add<QLabel>(QStringLiteral("lblFrontFont"), QStringLiteral("&Front font:"))),
      cboFrontFont(Add<QComboBox>(QStringLiteral("cboFrontFont"))),
      lblFSize(Add<QLabel>(QStringLiteral("lblFSize"), QStringLiteral("S&ize:"))),
      txtFSize(Add<QLineEdit>(QStringLiteral("txtFSize"))),
      lblPreFront(Add<QLabel>(QStringLiteral("lblPreFront"))),
      lblBackFont(Add<QLabel>(QStringLiteral("lblBackFont"), QStringLiteral("&Back font:"))),
      cboBackFont(Add<QComboBox>(QStringLiteral("cboBackFont"))),
      lblBSize(Add<QLabel>(QStringLiteral("lblBSize"), QStringLiteral("Si&ze:"))),
      txtBSize(Add<QLineEdit>(QStringLiteral("txtBSize"))),
      lblPreBack(Add<QLabel>(QStringLiteral("lblPreBack"))),
      lblMargin(Add<QLabel>(QStringLiteral("lblMargin"), QStringLiteral("Left &margin:"))),
      txtMargin(Add<QLineEdit>(QStringLiteral("txtMargin"))),
      lblMarginUnit(
          Add<QLabel>(QStringLiteral("lblMarginUnit"), QStringLiteral("lines of the front font"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("&Cancel"))) {
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Print);
  for (const int side : {Front, Back}) {
    const SideControls controls = ControlsOf(side);
    controls.cboFont->installEventFilter(this);
    controls.txtSize->installEventFilter(this);
    AcceptOnly(controls.txtSize, QStringLiteral("[0-9.]*"));
    connect(controls.cboFont, &QComboBox::activated, this, [this, side] { cboFont_Click(side); });
    connect(controls.txtSize, &QLineEdit::editingFinished, this,
            [this, side] { txtSize_LostFocus(side); });
  }
  AcceptOnly(txtMargin, QStringLiteral("[0-9]*"));
  connect(txtMargin, &QLineEdit::editingFinished, this, &frmPrint::txtMargin_LostFocus);
  connect(cmdOK, &QPushButton::clicked, this, &frmPrint::cmdOK_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmPrint::cmdCanc_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdCanc);
  Form_Load();
}

frmPrint::SideControls frmPrint::ControlsOf(int side) const {
  if (side == Front) return {lblFrontFont, cboFrontFont, lblFSize, txtFSize, lblPreFront};
  return {lblBackFont, cboBackFont, lblBSize, txtBSize, lblPreBack};
}

void frmPrint::LayOutSide(const SideControls& side, QGroupBox* box) {
  side.lblFont->setBuddy(side.cboFont);
  side.lblSize->setBuddy(side.txtSize);
  side.cboFont->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  side.cboFont->setMinimumContentsLength(20);
  side.txtSize->setToolTip(QStringLiteral("In points, at most 32"));
  side.txtSize->setFixedWidth(side.txtSize->fontMetrics().averageCharWidth() * 12);
  // The preview keeps its place while fonts and sizes change; a sentence too large is cut off.
  side.lblPreview->setWordWrap(true);
  side.lblPreview->setAlignment(Qt::AlignCenter);
  side.lblPreview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  const QFontMetrics largest(DisplayFont(DefaultFontName, LargestPreview));
  side.lblPreview->setMinimumHeight(largest.lineSpacing() * 2 + 8);

  auto* const choice = new QHBoxLayout;
  choice->addWidget(side.lblFont);
  choice->addWidget(side.cboFont, 1);
  choice->addSpacing(12);
  choice->addWidget(side.lblSize);
  choice->addWidget(side.txtSize);
  auto* const column = new QVBoxLayout(box);
  column->addLayout(choice);
  column->addWidget(side.lblPreview, 1);
}

void frmPrint::LayOut() {
  imgPrint->setPixmap(TintedIcon("print").pixmap(QSize(32, 32), devicePixelRatioF()));
  imgFont->setPixmap(TintedIcon("font").pixmap(QSize(32, 32), devicePixelRatioF()));
  imgPrint->setAccessibleName(QStringLiteral("Print"));
  imgFont->setAccessibleName(QStringLiteral("Font"));
  imgPrint->setVisible(m_printing);
  imgFont->setVisible(!m_printing);
  QFont heading = sspAction->font();
  heading.setBold(true);
  sspAction->setFont(heading);
  sspAction->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblMargin->setBuddy(txtMargin);
  txtMargin->setFixedWidth(txtFSize->fontMetrics().averageCharWidth() * 12);
  txtMargin->setToolTip(QStringLiteral("At most 40"));
  for (QWidget* const part : std::initializer_list<QWidget*>{lblMargin, txtMargin, lblMarginUnit}) {
    part->setVisible(m_printing);
  }
  auto* const fraFront = Add<QGroupBox>(QStringLiteral("fraFront"), QStringLiteral("Front"));
  auto* const fraBack = Add<QGroupBox>(QStringLiteral("fraBack"), QStringLiteral("Back"));
  LayOutSide(ControlsOf(Front), fraFront);
  LayOutSide(ControlsOf(Back), fraBack);
  const int width = std::max(lblFrontFont->sizeHint().width(), lblBackFont->sizeHint().width());
  lblFrontFont->setMinimumWidth(width);
  lblBackFont->setMinimumWidth(width);

  auto* const top = new QHBoxLayout;
  top->setSpacing(12);
  top->addWidget(imgPrint);
  top->addWidget(imgFont);
  top->addWidget(sspAction, 1);
  auto* const bottom = new QHBoxLayout;
  bottom->addWidget(lblMargin);
  bottom->addWidget(txtMargin);
  bottom->addWidget(lblMarginUnit);
  bottom->addStretch();
  bottom->addWidget(cmdOK);
  bottom->addWidget(cmdCanc);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(12);
  column->addLayout(top);
  column->addWidget(fraFront, 1);
  column->addWidget(fraBack, 1);
  column->addLayout(bottom);
  SetTabOrder({cboFrontFont, txtFSize, cboBackFont, txtBSize, txtMargin, cmdOK, cmdCanc});
  resize(600, sizeHint().height());
}

void frmPrint::Form_Load() {
  const CardStack& stack = m_shared.Stacks.Current();
  const WindowSwitches& switches = m_shared.Switches;
  const Text topicName = switches.NewTopicName.empty()
                             ? m_shared.Topics.Name(m_shared.Topics.CurrentTopic)
                             : switches.NewTopicName;
  setWindowTitle(TitleText(m_printing ? PrintCaption(stack) : DisplayFontCaption(topicName)));
  sspAction->setText(m_printing ? ToQString(PrintAction(stack)) : ToQString(DisplayFontAction));
  if (m_printing) {
    const Text action(TrimRight(PrintAction(stack)));  // the name stands in its full width
    SetSilentToolTip(*sspAction, action);
    sspAction->setAccessibleName(ToQString(action));
  }
  FillFontLists();
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  cboFrontFont->setCurrentIndex(cboFrontFont->findText(ToQString(fonts.FrontFont)));
  cboBackFont->setCurrentIndex(cboBackFont->findText(ToQString(fonts.BackFont)));
  txtFSize->setText(ToQString(NumberText(fonts.FrontSize)));
  txtBSize->setText(ToQString(NumberText(fonts.BackSize)));
  txtMargin->setText(ToQString(DefaultMarginText));
  for (const int side : {Front, Back}) {
    ControlsOf(side).lblPreview->setText(ToQString(PreviewText(side, true)));
    ShowPreviewFont(side, side == Front ? fonts.FrontSize : fonts.BackSize);
  }
  cboFrontFont->setFocus();
}

void frmPrint::FillFontLists() {
  m_screenFonts = m_services.fontNames();
  std::vector<Text> names = m_screenFonts;
  AddFontName(names, Text(DefaultFontName));
  AddFontName(names, m_shared.Topic.Fonts.FrontFont);
  AddFontName(names, m_shared.Topic.Fonts.BackFont);
  QStringList shown;
  shown.reserve(static_cast<qsizetype>(names.size()));
  for (const Text& name : names) shown << ToQString(name);
  // Thousands of fonts are no rarity: both lists show one model, and no entry is measured alone.
  auto* const model = new QStringListModel(shown, this);
  for (QComboBox* const list : {cboFrontFont, cboBackFont}) {
    list->setModel(model);
    if (auto* const view = qobject_cast<QListView*>(list->view())) view->setUniformItemSizes(true);
  }
}

Text frmPrint::ChosenFont(int side) const {
  return ToText(ControlsOf(side).cboFont->currentText());
}

bool frmPrint::IsOnScreen(TextView font) const {
  return font == DefaultFontName ||
         std::any_of(m_screenFonts.begin(), m_screenFonts.end(),
                     [&](const Text& name) { return EqualIgnoringCase(name, font); });
}

void frmPrint::ShowPreviewFont(int side, float size) {
  m_shownSize[static_cast<std::size_t>(side)] = size;
  ControlsOf(side).lblPreview->setFont(DisplayFont(ChosenFont(side), size));
}

void frmPrint::cboFont_Click(int side) {
  const bool onScreen = IsOnScreen(ChosenFont(side));
  ControlsOf(side).lblPreview->setText(ToQString(PreviewText(side, onScreen)));
  ShowPreviewFont(side, m_shownSize[static_cast<std::size_t>(side)]);
}

void frmPrint::txtSize_LostFocus(int side) {
  QLineEdit* const field = ControlsOf(side).txtSize;
  const ShownFont shown = m_services.showFont(ChosenFont(side), SizeOf(ToText(field->text())));
  const bool supported = shown.sameName || shown.size >= EveryFontShows;
  const float size = supported ? shown.size : DefaultFontSize;
  field->setText(ToQString(NumberText(size)));
  ShowPreviewFont(side, size);
  if (!supported) m_platform.prompts.Show({.text = u"This font does not support this size"});
}

void frmPrint::txtMargin_LostFocus() {
  txtMargin->setText(ToQString(RepairedMargin(ToText(txtMargin->text()))));
}

bool frmPrint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return Form::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  for (const int side : {Front, Back}) {
    const SideControls controls = ControlsOf(side);
    if (watched == controls.cboFont && TypesCharacter(key)) return true;
    if (watched == controls.txtSize && IsEnter(key)) {
      txtSize_LostFocus(side);
      controls.txtSize->selectAll();
      return true;
    }
  }
  return Form::eventFilter(watched, event);
}

void frmPrint::RepairFields() {
  // OK may be pressed by a key while the focus stays in a field.
  txtSize_LostFocus(Front);
  txtSize_LostFocus(Back);
  txtMargin_LostFocus();
}

void frmPrint::cmdOK_Click() {
  RepairFields();
  if (!m_printing) {
    StoreFonts();
    Unload();
    return;
  }
  const FileStatus status = PrintCurrentStack();
  if (status == FileStatus::Declined) return;
  if (status != FileStatus::Ok) {
    m_platform.prompts.Show({.text = ErrorText(status), .icon = PromptIcon::Exclamation});
    if (status != FileStatus::Overflow) return;  // another file or printer may do
  }
  Unload();
}

void frmPrint::StoreFonts() {
  TopicFonts& fonts = m_shared.Topic.Fonts;
  fonts.FrontFont = ChosenFont(Front);
  fonts.FrontSize = SizeOf(ToText(txtFSize->text()));
  fonts.BackFont = ChosenFont(Back);
  fonts.BackSize = SizeOf(ToText(txtBSize->text()));
}

PrintSettings frmPrint::ChosenSettings() const {
  return {.front = {.name = ChosenFont(Front), .size = SizeOf(ToText(txtFSize->text()))},
          .back = {.name = ChosenFont(Back), .size = SizeOf(ToText(txtBSize->text()))},
          .margin = LeadingNumber(ToText(txtMargin->text()))};
}

FileStatus frmPrint::PrintCurrentStack() {
  const CardStack& stack = m_shared.Stacks.Current();
  const std::unique_ptr<QPrinter> printer = m_services.defaultPrinter();
  Text pdf;
  if (printer == nullptr) {
    m_platform.prompts.Show({.text = u"There is no printer.  Choose a PDF file to print to.",
                             .icon = PromptIcon::Information});
    pdf = ToText(m_services.choosePdf(this, PdfName(stack)));
    if (pdf.empty()) return FileStatus::Declined;
  }
  const BusyPointer busy;
  QProgressDialog shown(QStringLiteral("Printing..."), QStringLiteral("&Cancel"), 0,
                        stack.CardCount, this);
  shown.setWindowTitle(ToQString(ProgramTitle));
  shown.setWindowModality(Qt::ApplicationModal);
  shown.setMinimumDuration(m_services.progressDelay);
  const PrintProgress progress = [&shown](int cards) {
    shown.setValue(cards);
    return !shown.wasCanceled();
  };
  const PrintSettings settings = ChosenSettings();
  if (printer != nullptr) return PrintToPrinter(*printer, stack, settings, progress);
  return PrintToPdf(m_platform.files, pdf, stack, settings, progress);
}

void frmPrint::Form_Unload() {
  // The fields lose the focus as the window goes, but nobody reads their repairs any more.
  txtFSize->disconnect(this);
  txtBSize->disconnect(this);
  const TopicList& topics = m_shared.Topics;
  const int topic = topics.Effective(topics.CurrentTopic);
  // A topic that is being added is saved by the window that adds it; General keeps its fonts for
  // this run only.
  if (m_printing || !m_shared.Switches.NewTopicName.empty() || topic < 1) return;
  const Answer answer = m_platform.prompts.Show({.text = u"Save fonts for this topic?",
                                                 .icon = PromptIcon::Question,
                                                 .buttons = PromptButtons::YesNo});
  if (answer == Answer::Yes) {
    // Where they cannot be saved they are still those of this run; the main window says so.
    (void)SaveTopicFonts(m_platform.profile, topics.Name(topic), m_shared.Topic.Fonts);
  }
}
