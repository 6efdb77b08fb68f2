#include "desktop/qt/message_box.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
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

// Window managers cut a title that is wider than its box.
void makeRoomForTitle(QMessageBox& shown) {
  constexpr int ButtonsAndIcon = 120;
  auto* const grid = qobject_cast<QGridLayout*>(shown.layout());
  if (!grid)
    return;
  const int width =
      QFontMetrics(QApplication::font()).horizontalAdvance(shown.windowTitle()) * 5 / 4 +
      ButtonsAndIcon;
  grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

Answer showMessageBox(const MessageBox& box, const QIcon& icon, QWidget* parent) {
  QMessageBox shown(parent);
  if (!icon.isNull())
    shown.setWindowIcon(icon);
  shown.setWindowTitle(toQt(box.title));
  shown.setTextFormat(Qt::PlainText);
  shown.setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
  shown.setIcon(box.style == BoxStyle::WarningYesNo ? QMessageBox::Warning
                                                    : QMessageBox::Information);
  makeRoomForTitle(shown);
  if (box.style == BoxStyle::Information) {
    shown.addButton(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    shown.exec();
    return Answer::Ok;
  }
  addYesAndNo(shown);
  return shown.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

} // namespace forms::qt
