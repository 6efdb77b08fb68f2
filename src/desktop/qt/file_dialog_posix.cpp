#include "desktop/qt/file_dialog.h"

#include <algorithm>
#include <utility>

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QTreeView>

#include <unistd.h>

#include "desktop/qt/conversions.h"
#include "desktop/qt/message_box.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

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

enum Column { NameColumn, SizeColumn, TypeColumn, DateColumn };

// Qt writes sizes and dates as the system's language has them.
class SpanishCells final : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QFileInfo file(index.data(QFileSystemModel::FilePathRole).toString());
    if (index.column() == SizeColumn && file.isFile())
      option->text = QLocale().formattedDataSize(file.size());
    if (index.column() == DateColumn)
      option->text = QLocale().toString(file.lastModified(), QStringLiteral("dd/MM/yyyy HH:mm"));
  }
};

class SpanishTypes final : public QFileIconProvider {
public:
  QString type(const QFileInfo& file) const override {
    if (file.isDir())
      return QStringLiteral("Carpeta");
    const QString suffix = file.suffix();
    return suffix.isEmpty() ? QStringLiteral("Archivo")
                            : QStringLiteral("Archivo %1").arg(suffix.toUpper());
  }
};

bool isTooLong(const QFileInfo& file) {
  const long most = pathconf(QFile::encodeName(file.path()).constData(), _PC_NAME_MAX);
  return most > 0 && QFile::encodeName(file.fileName()).size() > most;
}

// Tells which name is too long, where Qt passes over it, and takes one with double quotes as it is
// typed. The name of a folder leads into it; what is typed next takes the name's place.
class Dialog final : public QFileDialog {
public:
  using QFileDialog::QFileDialog;

  // Of the file that the person has chosen.
  QString path() const { return quoted_.isEmpty() ? selectedFiles().value(0) : quoted_; }

protected:
  void accept() override {
    auto* const name = findChild<QLineEdit*>();
    const QFileInfo file(directory(), name->text());
    if (isTooLong(file))
      showMessageBox({"El nombre del archivo es demasiado largo.",
                      BoxStyle::Information,
                      fromQt(windowTitle()),
                      {}},
                     {}, this);
    else if (name->text().contains(QLatin1Char('"')))
      acceptQuoted(file);
    else
      QFileDialog::accept();
    if (!isVisible())
      return;
    name->selectAll();
    if (name->completer())
      name->completer()->popup()->hide();
  }

private:
  // Qt would take what stands between double quotes for a name of its own.
  void acceptQuoted(const QFileInfo& file) {
    if (file.isDir())
      return setDirectory(file.filePath());
    quoted_ = file.absoluteFilePath();
    done(Accepted);
  }

  QString quoted_; // the path with double quotes that was accepted
};

void setSpanishCells(QFileDialog& shown) {
  auto* const details = shown.findChild<QTreeView*>();
  auto* const cells = new SpanishCells(details);
  details->setItemDelegateForColumn(SizeColumn, cells);
  details->setItemDelegateForColumn(DateColumn, cells);
  // In the font that the system gives the dialog, so that nothing is cut.
  const int digit = details->fontMetrics().horizontalAdvance(QStringLiteral("0"));
  QHeaderView& header = *details->header();
  for (const auto& [column, digits] :
       {std::pair(NameColumn, 36), {SizeColumn, 11}, {TypeColumn, 13}, {DateColumn, 20}})
    header.resizeSection(column, std::max(digits * digit, header.sectionSizeHint(column)));
  if (auto* const splitter = shown.findChild<QSplitter*>())
    splitter->setSizes({18 * digit, 84 * digit});
  const QSize wanted = shown.sizeHint().expandedTo({106 * digit, 0});
  shown.resize(wanted.boundedTo(shown.screen()->availableSize()));
}

// Qt disables it for some names. What is wrong with them, the person is told on pressing it.
void keepAcceptEnabled(QFileDialog& shown) {
  auto* const name = shown.findChild<QLineEdit*>();
  auto* const buttons = shown.findChild<QDialogButtonBox*>();
  const bool save = shown.acceptMode() == QFileDialog::AcceptSave;
  QPushButton* const accept =
      buttons->button(save ? QDialogButtonBox::Save : QDialogButtonBox::Open);
  QObject::connect(name, &QLineEdit::textChanged, accept,
                   [accept](const QString& text) { accept->setEnabled(!text.isEmpty()); });
}

// What Qt's translation leaves to the system's theme, or lacks.
void setSpanishTexts(QFileDialog& shown, bool save) {
  shown.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
  shown.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
  shown.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
  shown.setLabelText(QFileDialog::Accept,
                     save ? QStringLiteral("&Guardar") : QStringLiteral("&Abrir"));
  shown.setLabelText(QFileDialog::Reject, QStringLiteral("Cancelar"));
  if (auto* const up = shown.findChild<QToolButton*>(QStringLiteral("toParentButton")))
    up->setToolTip(QStringLiteral("Ir a la carpeta superior"));
}

// The folder itself or the nearest one above it that exists.
QString existingFolder(const std::string& wanted) {
  QFileInfo folder(QDir(toQt(wanted)).absolutePath());
  while (!folder.isDir())
    folder.setFile(folder.path());
  return folder.filePath();
}

std::optional<std::string> ask(const FileDialog& dialog, QWidget* parent) {
  Dialog shown(parent, toQt(dialog.title));
  // Whether the file exists is the program's question.
  shown.setOption(QFileDialog::DontConfirmOverwrite);
  shown.setOption(QFileDialog::HideNameFilterDetails);
  shown.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  shown.setNameFilters(nameFilters(dialog.filter));
  shown.setDirectory(existingFolder(dialog.folder));
  shown.selectFile(toQt(dialog.fileName));
  SpanishTypes types;
  shown.setIconProvider(&types);
  setSpanishTexts(shown, dialog.save);
  setSpanishCells(shown);
  keepAcceptEnabled(shown);
  if (shown.exec() != QDialog::Accepted || shown.path().isEmpty())
    return std::nullopt;
  return fromQt(shown.path());
}

} // namespace

std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent) {
  // Qt's file dialog would read what other programs left behind, and keep its own state in the
  // user's folders. No file can be below this path.
  for (const QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
    QSettings::setPath(QSettings::NativeFormat, scope, QStringLiteral("/dev/null"));
  auto path = ask(dialog, parent);
#ifdef __GLIBC__
  // The dialog leaves a megabyte of freed memory behind, which the C library would keep for a next
  // one that may never come.
  malloc_trim(0);
#endif
  return path;
}

} // namespace forms::qt
