#include "windows/authoring/MediaField.h"

#include "tests/window/WindowFixture.h"
#include "windows/frame/Icons.h"

#include <QDropEvent>
#include <QMimeData>

namespace {

class MediaFieldTest : public testing::Test {
 protected:
  bool HasMark(const char* name) const { return Mark(name) != nullptr && Mark(name)->isVisible(); }
  QAction* Mark(const char* name) const { return field.findChild<QAction*>(QLatin1String(name)); }

  bool Drop(const QList<QUrl>& files) {
    QMimeData dragged;
    dragged.setUrls(files);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop({5, 5}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &drop);
    return true;
  }

  MediaField field{MediaKind::Sound, [](const Text& name) { return name != u"cat.wav"; },
                   [] { return Text(u"/cards"); }, nullptr};
};

TEST_F(MediaFieldTest, AnEmptyFieldHasNoMark) {
  EXPECT_FALSE(HasMark("found"));
  EXPECT_FALSE(HasMark("missing"));
  EXPECT_EQ(field.toolTip(), "");
}

TEST_F(MediaFieldTest, TheMarkTellsWhetherTheFileIsThere) {
  field.setText("dog.wav");
  EXPECT_TRUE(HasMark("found"));
  EXPECT_EQ(field.accessibleDescription(), "The file is there");
  field.setText("cat.wav");
  EXPECT_TRUE(HasMark("missing"));
  EXPECT_EQ(field.accessibleDescription(), "The file was not found");
  EXPECT_EQ(field.toolTip(), PlainToolTip(u"The file was not found"));
}

TEST_F(MediaFieldTest, AFileThatIsThereIsNoComfortUnderANameThatWillNotLast) {
  for (const char* const name : {"my dog.wav", "/other/dog.wav", "dog.mp3", "dog.bmp"}) {
    field.setText(name);
    EXPECT_TRUE(HasMark("lost")) << name;
    EXPECT_FALSE(field.accessibleDescription().contains("is there")) << name;
  }
  EXPECT_EQ(Mark("lost")->toolTip(), "Saving would not keep this name");
  field.setText("<b>my</b> dog.wav");
  EXPECT_EQ(field.accessibleDescription(),
            "Only dog.wav is left after saving: a name must have no blanks");
}

TEST_F(MediaFieldTest, TheMarkOfAMissingFileIsNoClearButton) {
  field.setText("cat.wav");
  const QImage missing = Mark("missing")->icon().pixmap(24, 24).toImage();
  EXPECT_NE(missing, TintedIcon("wrong").pixmap(24, 24).toImage());
  EXPECT_EQ(missing, TintedIcon("warning").pixmap(24, 24).toImage());
}

TEST_F(MediaFieldTest, AClearedFieldSaysNothing) {
  field.setText("dog.wav");
  field.clear();
  EXPECT_FALSE(HasMark("found"));
  EXPECT_EQ(field.toolTip(), "");
  EXPECT_EQ(field.accessibleDescription(), "");
}

TEST_F(MediaFieldTest, ADroppedFileEntersItsPath) {
  field.setText("old");
  EXPECT_TRUE(Drop({QUrl::fromLocalFile("/sounds/a b.wav"), QUrl::fromLocalFile("/x.wav")}));
  EXPECT_EQ(field.text(), "/sounds/a b.wav");
}

TEST_F(MediaFieldTest, AFileOfTheCardFolderEntersItsBareName) {
  EXPECT_TRUE(Drop({QUrl::fromLocalFile("/cards/a.wav")}));
  EXPECT_EQ(field.text(), "a.wav");
}

TEST_F(MediaFieldTest, KeepsItsSelectionWhileTheMenuBarHasTheFocus) {
  field.setText("dog.wav");
  field.selectAll();
  QFocusEvent borrowed(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QCoreApplication::sendEvent(&field, &borrowed);
  EXPECT_EQ(field.selectedText(), "dog.wav");
  QFocusEvent left(QEvent::FocusOut, Qt::TabFocusReason);
  QCoreApplication::sendEvent(&field, &left);
  EXPECT_FALSE(field.hasSelectedText());
}

}  // namespace
