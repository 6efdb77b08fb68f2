#include "desktop/qt/message_box.h"

#include <algorithm>

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include "desktop/qt/conversions.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#undef MessageBox // theirs is a macro
#endif

namespace forms::qt {

namespace {

constexpr int ButtonsAndIcon = 142; // pixels beside a text, margins too

// As wide as its longest line: Qt would break the lines at 500 pixels, in however large a type. And
// as wide as its title, which window managers would cut.
class Box final : public QMessageBox {
public:
  using QMessageBox::QMessageBox;

protected:
  // Qt has chosen its size, and puts the box in the middle next.
  void resizeEvent(QResizeEvent* event) override {
    QMessageBox::resizeEvent(event);
    keepLinesWhole();
  }
  // The layout has had the request already. The box would choose its size once more, and go back to
  // where it was before the window manager put it elsewhere.
  bool event(QEvent* event) override {
    return event->type() == QEvent::LayoutRequest || QMessageBox::event(event);
  }

private:
  void keepLinesWhole() {
    auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (!label)
      return;
    constexpr int LongestLine = 80; // letters; what is longer is better read in several lines
    const int letters = LongestLine * label->fontMetrics().averageCharWidth();
    const int room = screen()->availableSize().width() - ButtonsAndIcon;
    label->setWordWrap(false);
    label->setMinimumWidth(std::min({label->sizeHint().width(), letters, room}));
    label->setWordWrap(true);
    layout()->activate();
    const int title = QFontMetrics(QApplication::font()).horizontalAdvance(windowTitle());
    const int width =
        std::max(layout()->totalMinimumSize().width(), title * 5 / 4 + ButtonsAndIcon);
    setFixedSize(width, layout()->totalHeightForWidth(width));
  }
};

void addYesAndNo(QMessageBox& shown) {
  shown.addButton(QMessageBox::Yes)->setText(QStringLiteral("&Sí"));
  QPushButton* const no = shown.addButton(QMessageBox::No);
  no->setText(QStringLiteral("&No"));
  shown.setDefaultButton(no);
  shown.setEscapeButton(no);
}

} // namespace

Answer showMessageBox(const MessageBox& box, const QIcon& icon, QWidget* parent) {
  Box shown(parent);
  shown.setWindowIcon(icon);
  shown.setWindowTitle(toQt(box.title));
  shown.setTextFormat(Qt::PlainText);
  shown.setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
  shown.setIcon(box.style == BoxStyle::WarningYesNo ? QMessageBox::Warning
                                                    : QMessageBox::Information);
  const auto reason = sessionEndReason(parent ? *parent : shown);
  if (box.style == BoxStyle::Information) {
    shown.addButton(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    shown.exec();
    return Answer::Ok;
  }
  addYesAndNo(shown);
  return shown.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

std::shared_ptr<void> sessionEndReason([[maybe_unused]] const QWidget& asking) {
#ifdef Q_OS_WIN
  const auto window = reinterpret_cast<HWND>(asking.window()->winId());
  ShutdownBlockReasonCreate(window, L"El juego espera la respuesta a una pregunta.");
  return {window, [](HWND named) { ShutdownBlockReasonDestroy(named); }};
#else
  return nullptr;
#endif
}

} // namespace forms::qt
