#pragma once

class QCoreApplication;

namespace parlex::gui {

// Loads Qt's own Russian texts (file dialogs, standard buttons) from Qt's
// translations folder. Returns false when they are not installed; Qt then speaks
// English and nothing else changes.
bool loadQtTranslations(QCoreApplication& app);

} // namespace parlex::gui
