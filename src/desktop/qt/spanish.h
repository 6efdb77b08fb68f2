// Spanish as the language of Qt's own texts, whatever the system's language.
#pragma once

namespace forms::qt {

// Needs the application. Without Qt's translation file its few texts stay English.
void speakSpanish();

} // namespace forms::qt
