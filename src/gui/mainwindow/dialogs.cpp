// The dialogs the main window opens: the byte editor, the options, help and About.
#include "core/platform/files.h"
#include "gui/codes/codelistpane.h"
#include "gui/editor/editdialog.h"
#include "gui/mainwindow/mainwindow.h"
#include "gui/settings/optionsdialog.h"
#include "parlex_version.h"
#include "session/pathtext.h"

#include <QDesktopServices>
#include <QUrl>

namespace parlex::gui {
namespace {

const QString kTitle = QString::fromUtf8(kMessageTitle);

// Where the help file is looked for: beside the program (a build, a portable copy),
// then where an installation puts it.
// The help page of the window's language, beside the program or where an
// installation puts it.
std::vector<std::filesystem::path> helpFiles(const std::filesystem::path& programDir,
                                             Language language) {
    const char* name = language == Language::English ? "Parlex_en.html" : "Parlex.html";
    return {programDir / name, (programDir / PARLEX_HELP_FROM_PROGRAM / name).lexically_normal()};
}

} // namespace

void MainWindow::openEditor(std::optional<int> byteIndex) {
    auto editor = session::ByteEditor::open(session_, byteIndex);
    if (!editor)
        return;
    auto* dialog = new EditDialog(session_, prompts_, *codes_, std::move(*editor), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open(); // modal; the window takes no input until it closes
}

void MainWindow::openOptions() {
    auto* dialog = new OptionsDialog(session_, association_.get(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void MainWindow::openHelp() {
    using Icon = session::UserPrompts::Icon;
    for (const auto& path : helpFiles(session_.programDir(), session_.options().language)) {
        if (!platform::fileExists(path))
            continue;
        const QString file = session::pathText(path);
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file)))
            prompts_.message(Icon::Exclamation, kTitle,
                             tr("Не удается открыть файл справки %1\nНет программы для "
                                "просмотра HTML-файлов (нужны xdg-utils и браузер)")
                                 .arg(file));
        return;
    }
    prompts_.message(Icon::Exclamation, kTitle,
                     tr("Не удается найти файл справки Parlex.html\n"
                        "Этот файл должен быть в папке с запускаемой програмой"));
}

void MainWindow::showAbout() {
    prompts_.about(kTitle, "Parlex (v." PARLEX_VERSION ")\n" +
                               tr("Редактор скриптов и речи НПЦ Jagged Alliance 2 и Unfinished "
                                  "Business"));
}

} // namespace parlex::gui
