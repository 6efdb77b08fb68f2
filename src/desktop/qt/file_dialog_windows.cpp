#include "desktop/qt/file_dialog.h"

#include <memory>
#include <system_error>
#include <vector>

#include <QDir>
#include <QIcon>
#include <QWidget>
#include <QWindow>

#include "desktop/qt/conversions.h"
#include "desktop/qt/message_box.h"

// Behind the others, for they make a macro of MessageBox.
#include <shobjidl.h>
#include <wrl/client.h>

namespace forms::qt {

namespace {

using Microsoft::WRL::ComPtr;

// Whether the file exists is the program's question, and the name stays as it was typed: without a
// default extension the dialog adds none.
constexpr FILEOPENDIALOGOPTIONS Options =
    FOS_FORCEFILESYSTEM | FOS_NOTESTFILECREATE | FOS_NOCHANGEDIR | FOS_DONTADDTORECENT;

void check(HRESULT result) {
  if (FAILED(result))
    throw std::system_error(result, std::system_category());
}

std::wstring wide(const std::string& text) {
  return toQt(text).toStdWString();
}

// From "Texts|*.txt|All|*.*".
void setFilter(IFileDialog& shown, const std::string& filter) {
  std::vector<std::wstring> parts;
  for (const QString& part : toQt(filter).split(QLatin1Char('|')))
    parts.push_back(part.toStdWString());
  std::vector<COMDLG_FILTERSPEC> types;
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2)
    types.push_back({parts[i].c_str(), parts[i + 1].c_str()});
  if (!types.empty())
    check(shown.SetFileTypes(static_cast<UINT>(types.size()), types.data()));
}

// The folder, or the nearest one above it that the shell can show: most of Windows knows no paths
// of more than 259 characters.
ComPtr<IShellItem> shellFolder(const std::string& path) {
  ComPtr<IShellItem> folder;
  for (QString tried = QDir::fromNativeSeparators(toQt(path));;) {
    const std::wstring native = QDir::toNativeSeparators(tried).toStdWString();
    const HRESULT result =
        SHCreateItemFromParsingName(native.c_str(), nullptr, IID_PPV_ARGS(folder.GetAddressOf()));
    if (SUCCEEDED(result))
      return folder;
    const QString above = QFileInfo(tried).path();
    if (above == tried)
      check(result);
    tried = above;
  }
}

void prepare(IFileDialog& shown, const FileDialog& dialog) {
  check(shown.SetOptions(Options));
  check(shown.SetTitle(wide(dialog.title).c_str()));
  check(shown.SetFileName(wide(dialog.fileName).c_str()));
  setFilter(shown, dialog.filter);
  // Not as a default: that gives way to the folder of the dialog before.
  check(shown.SetFolder(shellFolder(dialog.folder).Get()));
}

// Ends the dialog as its Cancel does.
void cancel(IFileDialog& shown) {
  ComPtr<IOleWindow> window;
  HWND handle = nullptr;
  if (SUCCEEDED(shown.QueryInterface(IID_PPV_ARGS(window.GetAddressOf()))) &&
      SUCCEEDED(window->GetWindow(&handle)))
    PostMessageW(handle, WM_COMMAND, IDCANCEL, 0);
}

std::string chosenPath(IFileDialog& shown) {
  ComPtr<IShellItem> file;
  check(shown.GetResult(file.GetAddressOf()));
  wchar_t* path = nullptr;
  check(file->GetDisplayName(SIGDN_FILESYSPATH, &path));
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owned(path, &CoTaskMemFree);
  return fromQt(QString::fromWCharArray(path));
}

// The dialog waits in a loop of the system's, in which Qt's timers go on. It keeps the person from
// the window that owns it, and gives that the keyboard back.
std::optional<std::string> ask(const FileDialog& dialog, QWidget* parent) {
  ComPtr<IFileDialog> shown;
  check(CoCreateInstance(dialog.save ? CLSID_FileSaveDialog : CLSID_FileOpenDialog, nullptr,
                         CLSCTX_INPROC_SERVER, IID_PPV_ARGS(shown.GetAddressOf())));
  prepare(*shown.Get(), dialog);
  QObject watcher;
  HWND owner = nullptr;
  std::shared_ptr<void> reason;
  if (parent) {
    reason = sessionEndReason(*parent);
    owner = reinterpret_cast<HWND>(parent->winId());
    // An end of the program ends Qt's loops alone.
    QObject::connect(parent->windowHandle(), &QWindow::visibleChanged, &watcher,
                     [&] { cancel(*shown.Get()); });
  }
  const HRESULT answer = shown->Show(owner);
  if (answer == HRESULT_FROM_WIN32(ERROR_CANCELLED))
    return std::nullopt;
  check(answer);
  return chosenPath(*shown.Get());
}

} // namespace

std::optional<std::string> showFileDialog(const FileDialog& dialog, QWidget* parent) {
  try {
    return ask(dialog, parent);
  } catch (const std::system_error& error) {
    const QString reason = qt_error_string(error.code().value());
    showMessageBox({"No se puede elegir el archivo:\r\n" + fromQt(reason),
                    BoxStyle::Information,
                    dialog.title,
                    {}},
                   {}, parent);
    return std::nullopt;
  }
}

} // namespace forms::qt
