#include "windows/frame/QtText.h"

QString ToQString(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

Text ToText(const QString& text) { return text.toStdU16String(); }

QString ToShownText(TextView text) { return ToQString(ReplaceAll(text, LineBreak, u"\n")); }

Text FromShownText(const QString& text) { return ReplaceAll(ToText(text), u"\n", LineBreak); }

QString PlainToolTip(TextView text) {
  if (text.empty()) return {};
  return QStringLiteral("<div style='white-space:pre'>%1</div>")
      .arg(ToShownText(text).toHtmlEscaped());
}

QString TitleText(TextView text) {
  QString title = ToQString(text);
  for (QChar& character : title) {
    const QChar::Category category = character.category();
    const bool breaks = category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
    if (breaks || category == QChar::Other_Control) character = u' ';
  }
  return title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString EscapeMnemonics(TextView text) { return ToQString(ReplaceAll(text, u"&", u"&&")); }
