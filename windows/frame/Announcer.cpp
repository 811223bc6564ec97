#include "windows/frame/Announcer.h"

#include "windows/frame/AccessibleRole.h"

#include <QWidget>

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

Announcer::Announcer(QWidget* window) : m_window(window) {}

void Announcer::Say(const QString& words) {
  QAccessibleAnnouncementEvent event(m_window, words);
  QAccessible::updateAccessibility(&event);
}

#else

Announcer::Announcer(QWidget* window) : m_window(window), m_speaker(new QWidget) {
  m_speaker->setObjectName(QStringLiteral("announcement"));
  SetAccessibleRole(m_speaker.get(), QAccessible::Notification);
}

void Announcer::Say(const QString& words) {
  QAccessibleEvent gone(m_speaker.get(), QAccessible::ObjectHide);
  QAccessible::updateAccessibility(&gone);  // the notification before this one
  m_speaker->setAccessibleName(words);
  QAccessibleEvent come(m_speaker.get(), QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&come);
}

#endif
