#include "desktop/qt/picture_store.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QBuffer>
#include <QFileInfo>
#include <QImageReader>
#include <QStringList>

#include "desktop/qt/conversions.h"
#include "forms/text_file.h"

namespace forms::qt {

namespace {

PictureStore* listening = nullptr; // Qt calls a plain function

constexpr int LargestScale = 3;

QString fileFor(const QString& path, int scale) {
  if (scale == 1)
    return path;
  const QFileInfo file(path);
  return QStringLiteral("%1/%2@%3x.%4")
      .arg(file.path(), file.completeBaseName(), QString::number(scale), file.suffix());
}

// From the smallest file that has enough pixels upwards, then downwards.
QStringList candidates(const QString& path, int wanted) {
  const int enough = std::clamp(wanted, 1, LargestScale);
  QStringList files;
  for (int scale = enough; scale <= LargestScale; ++scale)
    files.append(fileFor(path, scale));
  for (int scale = enough - 1; scale >= 1; --scale)
    files.append(fileFor(path, scale));
  return files;
}

// The bytes of a picture, through the door that nothing but a file comes through: a decoder would
// wait for ever at a pipe. Empty when they cannot be had.
QByteArray contents(const QString& path) {
  constexpr std::size_t Largest = 16 * 1024 * 1024;
  return QByteArray::fromStdString(readTextFile(fromQt(path), Largest).value_or(std::string()));
}

// Title bars and task lists take no larger images than that, also at the largest scale; the file's
// largest one alone would cost a quarter of a megabyte for each icon.
constexpr int LargestIcon = 128; // pixels

QIcon loadIcon(const QString& path) {
  QIcon icon;
  QByteArray bytes = contents(path);
  QBuffer buffer(&bytes);
  QImageReader file(&buffer);
  do {
    QImage image = file.read();
    if (image.width() <= LargestIcon && !image.isNull())
      icon.addPixmap(QPixmap::fromImage(std::move(image)));
  } while (file.jumpToNextImage());
  return icon;
}

} // namespace

PictureStore::PictureStore() : before_(qInstallMessageHandler(hear)) {
  listening = this;
}

PictureStore::~PictureStore() {
  qInstallMessageHandler(before_);
}

void PictureStore::hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (QLatin1String(context.category).startsWith(QLatin1String("qt.gui.imageio")))
    listening->warned_ = true;
  else
    listening->before_(type, context, text);
}

QImage PictureStore::decode(const QString& path) {
  QByteArray bytes = contents(path);
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  warned_ = false;
  QImage image = reader.read();
  return warned_ ? QImage() : image;
}

QImage PictureStore::load(const QString& path, int wanted) {
  for (const QString& file : candidates(path, wanted)) {
    if (QImage image = decode(file); !image.isNull())
      return image;
  }
  return {};
}

std::optional<PictureSize> PictureStore::size(const QString& path) {
  if (const auto known = sizes_.constFind(path); known != sizes_.constEnd())
    return *known;
  const QSize size = decode(path).size();
  if (size.isEmpty())
    return std::nullopt;
  return *sizes_.insert(path, PictureSize{size.width(), size.height()});
}

QSize PictureStore::devicePixels(QSize size, qreal ratio) {
  return {static_cast<int>(std::ceil(size.width() * ratio)),
          static_cast<int>(std::ceil(size.height() * ratio))};
}

QPixmap PictureStore::pixmap(const QString& path, QSize size, qreal ratio) {
  const QSize device = devicePixels(size, ratio);
  const QString key =
      QStringLiteral("%1|%2x%3|%4").arg(path).arg(device.width()).arg(device.height()).arg(ratio);
  if (const auto known = pixmaps_.constFind(key); known != pixmaps_.constEnd())
    return *known;
  // A pixel more, as rounding brings it about, needs no denser file.
  const int whole = this->size(path).value_or(PictureSize{1, 1}).width;
  QImage image = load(path, (device.width() + whole - 2) / whole);
  if (!image.isNull() && image.size() != device)
    image = image.scaled(device, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QPixmap pixmap = QPixmap::fromImage(std::move(image));
  pixmap.setDevicePixelRatio(ratio);
  return *pixmaps_.insert(key, pixmap);
}

QIcon PictureStore::icon(const QString& path) {
  if (path.isEmpty())
    return {};
  QIcon& icon = icons_[path];
  if (icon.isNull())
    icon = loadIcon(path);
  return icon;
}

} // namespace forms::qt
