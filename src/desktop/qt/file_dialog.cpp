#include "desktop/qt/file_dialog.h"

#include <QDir>
#include <QFileDialog>

#include "desktop/qt/conversions.h"

namespace forms::qt {

namespace {

// From "Texts|*.txt|All|*.*" to "Texts (*.txt)", "All (*)": a file needs no dot to be among all.
QStringList nameFilters(const std::string& filter) {
  const QStringList parts = toQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString pattern =
        parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
    filters.append(QStringLiteral("%1 (%2)").arg(parts[i], pattern));
  }
  return filters;
}

// The folder itself or the nearest one above it that exists.
QString existingFolder(const QString& wanted) {
  QDir folder(QDir::fromNativeSeparators(wanted));
  while (!folder.exists()) {
    const QString above = QFileInfo(folder.absolutePath()).path();
    if (above == folder.absolutePath())
      break;
    folder.setPath(above);
  }
  return folder.absolutePath();
}

// What Qt's translation leaves to the system's theme, or lacks.
void setSpanishTexts(QFileDialog& shown, bool save) {
  shown.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
  shown.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
  shown.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
  shown.setLabelText(QFileDialog::Accept,
                     save ? QStringLiteral("&Guardar") : QStringLiteral("&Abrir"));
  shown.setLabelText(QFileDialog::Reject, QStringLiteral("Cancelar"));
}

} // namespace

std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent) {
  QFileDialog shown(parent, toQt(dialog.title));
  shown.setOption(QFileDialog::DontUseNativeDialog);
  shown.setOption(QFileDialog::DontConfirmOverwrite);
  shown.setOption(QFileDialog::HideNameFilterDetails);
  shown.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  // Whether the file exists is the program's question.
  shown.setFileMode(QFileDialog::AnyFile);
  shown.setNameFilters(nameFilters(dialog.filter));
  shown.setDirectory(existingFolder(toQt(dialog.folder)));
  shown.selectFile(toQt(dialog.fileName));
  setSpanishTexts(shown, dialog.save);
  if (shown.exec() != QDialog::Accepted || shown.selectedFiles().isEmpty())
    return std::nullopt;
  return fromQt(QDir::toNativeSeparators(shown.selectedFiles().constFirst()));
}

} // namespace forms::qt
