#pragma once

#include "authoring/CardEditor.h"
#include "authoring/CardFields.h"
#include "keys/KeyTable.h"

#include <QGroupBox>

class CardField;
class CardTextBox;
class MediaField;
struct Platform;
struct SharedState;

/// The fields of one side of a card: its text, its sound, its picture. The create window and the
/// card editor each have two.
class SidePanel : public QGroupBox {
  Q_OBJECT

 public:
  SidePanel(int side, SharedState& shared, Platform& platform, QWidget* owner);

  /// The fields as memory holds them. The text of a field that nobody changed is what was shown, to
  /// the letter.
  SideFields Content() const;

  /// Shows other fields; no signal tells of it.
  void SetContent(const SideFields& fields);

  void SetTextFont(const QFont& font);
  CardTextBox* TextBox() const { return m_text; }
  CardField* Field() const { return m_field; }

 signals:
  void TextChanged();
  void MediaChanged(MediaKind kind, const QString& name);

 private:
  MediaField* AddMediaField(const QString& name, MediaKind kind, SharedState& shared,
                            Platform& platform);

  CardTextBox* m_text;
  CardField* m_field;
  MediaField* m_sound;
  MediaField* m_picture;
  Text m_given;  // the text last shown, as memory holds it
  Text m_shown;  // the same as the box gives it back
  bool m_filling = false;
};
