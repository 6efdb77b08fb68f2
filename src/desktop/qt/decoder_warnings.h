// Whether a picture file is damaged: its decoder fills in what it cannot read, and only warns.
#pragma once

#include <QtGlobal>

namespace forms::qt {

// Hears the decoders' warnings while it lives, and passes on what others have to say. One per
// process.
class DecoderWarnings {
public:
  DecoderWarnings();
  ~DecoderWarnings();
  DecoderWarnings(const DecoderWarnings&) = delete;
  DecoderWarnings& operator=(const DecoderWarnings&) = delete;

  // Whether there was one since the last call.
  bool take();

private:
  static void hear(QtMsgType type, const QMessageLogContext& context, const QString& text);

  QtMessageHandler before_;
  bool heard_ = false;
};

} // namespace forms::qt
