// parlex: the desktop editor of .npc scripts.
#include "app/translations.h"
#include "mainwindow/mainwindow.h"
#include "platform/files.h"
#include "prompts/dialogprompts.h"

#include <QApplication>
#include <QFileInfo>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    parlex::gui::loadQtTranslations(app);
    parlex::gui::DialogPrompts prompts;
    parlex::gui::MainWindow window(prompts, parlex::platform::programDir());
    prompts.setParent(&window);
    QStringList arguments = QApplication::arguments();
    arguments.removeFirst();
    if (!window.session().start(arguments,
                                QFileInfo(QApplication::applicationFilePath()).fileName()))
        return 0;
    window.show();
    return QApplication::exec();
}
