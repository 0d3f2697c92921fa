#pragma once

#include "core/text/language.h"

class QCoreApplication;

namespace parlex::gui {

// Loads Qt's own Russian texts (file dialogs, standard buttons) from Qt's
// translations folder. Returns false when they are not installed; Qt then speaks
// English and nothing else changes.
bool loadQtTranslations(QCoreApplication& app);

// Puts the window's texts into `language` at once: every widget is told of it
// (QEvent::LanguageChange) and says its texts again. The texts in the code are
// Russian; English comes from the program's own translation, compiled in, and Qt's
// own texts (file dialogs, standard buttons) from Qt's Russian translation, or Qt's
// English without one. Where Qt's Russian texts are not installed, Qt speaks English
// and nothing else changes. Choosing the language that is in place does nothing.
void applyLanguage(Language language);

} // namespace parlex::gui
