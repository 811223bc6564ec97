#include "tests/support/WindowTour.h"
#include "tests/window/WindowFixture.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/KeptSize.h"
#include "windows/keys/frmAddKey.h"
#include "windows/keys/frmMoreKeys.h"
#include "windows/main/frmMain.h"
#include "windows/printing/frmPrint.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/frmStepper.h"

#include <algorithm>

namespace {

TEST(EveryWindow, KeepsItsSizeWhereThatIsOfUse) {
  // Those whose contents have one size, and those in which nothing gains from more room.
  const QStringList ofOneSize = {QStringLiteral("frmStartup"), QStringLiteral("frmAboutBox"),
                                 QStringLiteral("frmTime"),    QStringLiteral("frmConfig"),
                                 QStringLiteral("frmDesc"),    QStringLiteral("frmKeys")};
  WindowTour([&](QWidget& window, const QString& name) {
    if (window.inherits("QMessageBox")) return;
    const QObjectList& parts = window.children();
    const bool keeps = std::any_of(parts.begin(), parts.end(), [](QObject* part) {
      return dynamic_cast<KeptSize*>(part) != nullptr;
    });
    EXPECT_NE(keeps, ofOneSize.contains(window.objectName())) << name.toStdString();
  }).Run();
}

class KeptSizesTest : public WindowTest {
 protected:
  using Make = std::function<std::unique_ptr<QWidget>()>;

  template <class Window, class... Arguments>
  Make Maker(Arguments... arguments) {
    return [=, this] { return std::make_unique<Window>(shared, platform, arguments...); };
  }

  static void ExpectSizeIsKept(const char* name, const Make& make, QSize size) {
    for (const bool again : {false, true}) {
      const std::unique_ptr<QWidget> window = make();
      window->show();
      WaitUntilActive(*window);
      if (again) {
        EXPECT_EQ(window->size(), size) << name;
      } else {
        ResizeByUser(*window, size);
        ASSERT_EQ(window->size(), size) << name;
        window->hide();
      }
    }
  }
};

TEST_F(KeptSizesTest, EachKindOfWindowHasASizeOfItsOwn) {
  LoadStack(u"Dogs", 3);
  shared.Switches.KeyCodeToSend = -2;
  QWidget* const none = nullptr;
  frmFind find(shared, platform, nullptr);
  StudyWindows studyWindows(shared, platform);
  std::vector<std::pair<const char*, Make>> kinds = {
      {"main", Maker<frmMain>(Text(), none)},
      {"load", Maker<frmLoad>(none)},
      {"create", Maker<frmCreate>(none)},
      {"find", Maker<frmFind>(none)},
      {"add key", Maker<frmAddKey>(none)},
      {"edit", [&] { return std::make_unique<frmEdit>(shared, platform, nullptr, find); }},
      {"more keys",
       [&] {
         return std::make_unique<frmMoreKeys>(shared, platform, nullptr, shared.Topic.Fonts);
       }},
  };
  for (const bool printing : {false, true}) {
    kinds.emplace_back(printing ? "print" : "fonts", [&, printing] {
      shared.Switches.PrintMode = printing;
      return std::make_unique<frmPrint>(shared, platform, nullptr);
    });
  }
  for (const StudyMode mode :
       {StudyMode::Stepper, StudyMode::Quibber, StudyMode::Speller, StudyMode::Chooser}) {
    kinds.emplace_back("study", [&, mode] {
      shared.Switches.StudyMode = mode;
      return std::make_unique<frmStepper>(shared, platform, studyWindows, 0);
    });
  }
  // None asks for the size that another was given.
  QSize size(701, 541);
  for (const auto& [name, make] : kinds) {
    ExpectSizeIsKept(name, make, size);
    size += QSize(3, 5);
  }
}

}  // namespace
