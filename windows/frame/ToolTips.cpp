#include "windows/frame/ToolTips.h"

#include "windows/frame/QtText.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

namespace {

constexpr auto Property = "silentToolTip";

class ToolTipFilter : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return false;
    auto* const widget = static_cast<QWidget*>(watched);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       PlainToolTip(ToText(SilentToolTip(*widget))), widget);
    return true;
  }
};

}  // namespace

void SetSilentToolTip(QWidget& widget, TextView text) {
  static ToolTipFilter filter;  // one for all, which outlives them
  widget.setProperty(Property, ToQString(text));
  widget.installEventFilter(&filter);
}

QString SilentToolTip(const QWidget& widget) { return widget.property(Property).toString(); }
