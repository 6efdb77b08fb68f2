#include "desktop/qt/decoder_warnings.h"

#include <utility>

#include <QLatin1String>

namespace forms::qt {

namespace {

DecoderWarnings* listening = nullptr; // Qt calls a plain function

} // namespace

DecoderWarnings::DecoderWarnings() : before_(qInstallMessageHandler(hear)) {
  listening = this;
}

DecoderWarnings::~DecoderWarnings() {
  qInstallMessageHandler(before_);
}

bool DecoderWarnings::take() {
  return std::exchange(heard_, false);
}

void DecoderWarnings::hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (QLatin1String(context.category).startsWith(QLatin1String("qt.gui.imageio")))
    listening->heard_ = true;
  else
    listening->before_(type, context, text);
}

} // namespace forms::qt
