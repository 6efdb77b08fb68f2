#include "desktop/qt/keyboard_move.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>

namespace forms::qt {

namespace {

class KeyboardMove final : public QObject {
public:
  explicit KeyboardMove(QMdiSubWindow& child) : QObject(&child), child_(child), from_(child.pos()) {
    QApplication::setOverrideCursor(Qt::SizeAllCursor);
    qApp->installEventFilter(this);
  }
  ~KeyboardMove() override { QApplication::restoreOverrideCursor(); }

protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (QApplication::activeModalWidget()) { // it has opened meanwhile, and the keys are for it
      end();
      return false;
    }
    switch (event->type()) {
    case QEvent::KeyPress:
      pressed(static_cast<QKeyEvent*>(event)->key());
      return true;
    case QEvent::ShortcutOverride:
      event->accept(); // no key is a shortcut meanwhile
      return true;
    case QEvent::MouseButtonPress:
      end();
      return false;
    default:
      return false;
    }
  }

private:
  void end() {
    qApp->removeEventFilter(this);
    deleteLater();
  }

  void pressed(int key) {
    constexpr int Step = 10; // pixels
    const int across = (key == Qt::Key_Right) - (key == Qt::Key_Left);
    const int down = (key == Qt::Key_Down) - (key == Qt::Key_Up);
    child_.move(key == Qt::Key_Escape ? from_ : child_.pos() + Step * QPoint(across, down));
    if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter)
      end();
  }

  QMdiSubWindow& child_;
  const QPoint from_;
};

} // namespace

void moveByKeyboard(QMdiSubWindow& child) {
  new KeyboardMove(child);
}

} // namespace forms::qt
