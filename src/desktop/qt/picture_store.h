// The picture files in the size that the screen needs, loaded when first shown and kept.
#pragma once

#include <optional>

#include <QHash>
#include <QIcon>
#include <QPixmap>
#include <QString>

#include "forms/desktop.h"

namespace forms::qt {

// Beside name.jpg there may be name@2x.jpg and name@3x.jpg with as many times the pixels. One per
// process: it hears the decoders' warnings, and passes on what others have to say.
class PictureStore {
public:
  PictureStore();
  ~PictureStore();
  PictureStore(const PictureStore&) = delete;
  PictureStore& operator=(const PictureStore&) = delete;

  // Pixels of the file at 96 dpi; nothing when it is no picture that can be shown, or a damaged
  // one.
  std::optional<PictureSize> size(const QString& path);
  // Device pixels of so many logical ones: whole, none left uncovered.
  static QSize devicePixels(QSize size, qreal ratio);
  // The picture in `size` logical pixels on a screen with `ratio` device pixels to one of them.
  // Null when the file cannot be loaded.
  QPixmap pixmap(const QString& path, QSize size, qreal ratio);
  // Drops all pictures that are kept: they will be wanted in other sizes.
  void forgetPixmaps() { pixmaps_.clear(); }
  // A window's icon; without a path none.
  QIcon icon(const QString& path);

private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& text);
  // Null for a file that is not whole.
  QImage decode(const QString& path);
  // From the smallest file with so many pixels to one at 96 dpi, or the next best.
  QImage load(const QString& path, int wanted);

  QtMessageHandler before_;
  bool warned_ = false; // a decoder fills in what it cannot read, and only warns
  QHash<QString, PictureSize> sizes_;
  QHash<QString, QPixmap> pixmaps_;
  QHash<QString, QIcon> icons_;
};

} // namespace forms::qt
