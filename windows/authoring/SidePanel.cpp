#include "windows/authoring/SidePanel.h"

#include "program/Platform.h"
#include "program/SharedState.h"
#include "study/MediaFiles.h"
#include "windows/authoring/CardTextBox.h"
#include "windows/authoring/MediaField.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CardField.h"

#include <QGridLayout>
#include <QLabel>

namespace {

QString SideName(int side) {
  return side == Front ? QStringLiteral("Front") : QStringLiteral("Back");
}

}  // namespace

SidePanel::SidePanel(int side, SharedState& shared, Platform& platform, QWidget* owner)
    : QGroupBox(SideName(side), owner),
      m_text(new CardTextBox(this)),
      m_field(new CardField(m_text, shared.Topic.Keys)),
      m_sound(AddMediaField(QStringLiteral("txt%1Wave").arg(SideName(side)), MediaKind::Sound,
                            shared, platform)),
      m_picture(AddMediaField(QStringLiteral("txt%1Picture").arg(SideName(side)),
                              MediaKind::Picture, shared, platform)) {
  setObjectName(QStringLiteral("ssp") + SideName(side));
  m_text->setObjectName(QStringLiteral("txt") + SideName(side));
  m_text->setAccessibleName(SideName(side) + QStringLiteral(" text"));
  m_text->setTabChangesFocus(true);
  auto* const soundLabel = new QLabel(QStringLiteral("Sound:"), this);
  auto* const pictureLabel = new QLabel(QStringLiteral("Picture:"), this);
  m_sound->setAccessibleName(SideName(side) + QStringLiteral(" sound"));
  m_picture->setAccessibleName(SideName(side) + QStringLiteral(" picture"));
  auto* const grid = new QGridLayout(this);
  grid->addWidget(m_text, 0, 0, 1, 2);
  grid->addWidget(soundLabel, 1, 0);
  grid->addWidget(m_sound, 1, 1);
  grid->addWidget(pictureLabel, 2, 0);
  grid->addWidget(m_picture, 2, 1);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(1, 1);
  setTabOrder(m_text, m_sound);
  setTabOrder(m_sound, m_picture);
  connect(m_text, &CardTextBox::textChanged, this, [this] {
    if (!m_filling) emit TextChanged();
  });
}

MediaField* SidePanel::AddMediaField(const QString& name, MediaKind kind, SharedState& shared,
                                     Platform& platform) {
  auto* const field = new MediaField(
      kind,
      [&shared, &platform](const Text& media) {
        return !FindMedia(platform.files, media, shared.Switches.DefaultFolder).empty();
      },
      [&shared] { return shared.Switches.DefaultFolder; }, this);
  field->setObjectName(name);
  connect(field, &QLineEdit::textChanged, this, [this, kind, field] {
    if (!m_filling) emit MediaChanged(kind, field->text());
  });
  return field;
}

SideFields SidePanel::Content() const {
  const Text content = m_field->Content();
  return {content == m_shown ? m_given : content, ToText(m_sound->text()),
          ToText(m_picture->text())};
}

void SidePanel::SetContent(const SideFields& fields) {
  m_filling = true;
  m_field->SetContent(fields.text);
  m_sound->setText(ToQString(fields.sound));
  m_picture->setText(ToQString(fields.picture));
  m_given = fields.text;
  m_shown = m_field->Content();
  m_filling = false;
}

void SidePanel::SetTextFont(const QFont& font) { m_text->setFont(font); }
