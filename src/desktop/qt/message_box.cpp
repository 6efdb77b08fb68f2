#include "desktop/qt/message_box.h"

#include <QMessageBox>
#include <QPushButton>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

void addYesAndNo(QMessageBox& shown) {
  shown.addButton(QMessageBox::Yes)->setText(QStringLiteral("Sí"));
  QPushButton* const no = shown.addButton(QMessageBox::No);
  no->setText(QStringLiteral("No"));
  shown.setDefaultButton(no);
  shown.setEscapeButton(no);
}

} // namespace

Answer showMessageBox(const MessageBox& box, QWidget* parent) {
  QMessageBox shown(parent);
  shown.setWindowTitle(toQt(box.title));
  shown.setTextFormat(Qt::PlainText);
  shown.setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
  shown.setIcon(box.style == BoxStyle::WarningYesNo ? QMessageBox::Warning
                                                    : QMessageBox::Information);
  if (box.style == BoxStyle::Information) {
    shown.addButton(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    shown.exec();
    return Answer::Ok;
  }
  addYesAndNo(shown);
  return shown.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

} // namespace forms::qt
