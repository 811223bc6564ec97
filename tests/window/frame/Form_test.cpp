#include "windows/frame/Form.h"

#include "tests/window/WindowFixture.h"

namespace {

/// Counts what a control still tells the window when both are going.
class GoingWindow : public Form {
 public:
  GoingWindow(SharedState& shared, Platform& platform, int& told)
      : Form("GoingWindow", shared, platform, nullptr) {
    auto* const control = Add<QLabel>(QStringLiteral("control"));
    connect(control, &QObject::destroyed, this, [&told] { ++told; });
  }
};

class PlainWindow : public Form {
 public:
  PlainWindow(SharedState& shared, Platform& platform, QWidget* owner)
      : Form("PlainWindow", shared, platform, owner) {}
};

using FormTest = WindowTest;

TEST_F(FormTest, TheOwnerIsActiveAgainWhenAModalWindowHasClosed) {
  PlainWindow owner(shared, platform, nullptr);
  owner.show();
  WaitUntilActive(owner);
  WithModal<Form>([&] { PlainWindow(shared, platform, &owner).ShowModal(); },
                  [](Form& window) { window.Unload(); });
  WaitUntilActive(owner);
  EXPECT_TRUE(owner.isActiveWindow());
}

TEST_F(FormTest, AWindowThatIsGoingIsToldNothingByItsControls) {
  int told = 0;
  { const GoingWindow window(shared, platform, told); }
  EXPECT_EQ(told, 0);
}

TEST_F(FormTest, AWindowThatStaysIsToldByItsControls) {
  int told = 0;
  const GoingWindow window(shared, platform, told);
  delete &Find<QLabel>(const_cast<GoingWindow&>(window), "control");
  EXPECT_EQ(told, 1);
}

}  // namespace
