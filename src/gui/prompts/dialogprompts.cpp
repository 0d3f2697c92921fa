#include "prompts/dialogprompts.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace parlex::gui {

void DialogPrompts::message(Icon icon, const QString& title, const QString& text) {
    const auto boxIcon = icon == Icon::Critical      ? QMessageBox::Critical
                         : icon == Icon::Exclamation ? QMessageBox::Warning
                         : icon == Icon::Question    ? QMessageBox::Question
                                                     : QMessageBox::Information;
    QMessageBox box(boxIcon, title, text, QMessageBox::Ok, parent_);
    box.exec();
}

UserPrompts::Answer DialogPrompts::question(const QString& title, const QString& text,
                                            bool withCancel) {
    auto buttons = QMessageBox::Yes | QMessageBox::No;
    if (withCancel)
        buttons |= QMessageBox::Cancel;
    QMessageBox box(QMessageBox::Question, title, text, buttons, parent_);
    box.button(QMessageBox::Yes)->setText("Да");
    box.button(QMessageBox::No)->setText("Нет");
    if (withCancel)
        box.button(QMessageBox::Cancel)->setText("Отмена");
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return withCancel ? Answer::Cancel : Answer::No;
    }
}

std::optional<UserPrompts::FileChoice> DialogPrompts::fileDialog(const FileRequest& request,
                                                                 bool save) {
    QStringList filters;
    for (const auto& f : request.filters)
        filters << f.text + " (" + f.pattern + ")";
    QFileDialog dialog(parent_, request.title, request.folder);
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size())
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!request.proposedName.isEmpty())
        dialog.selectFile(request.proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return FileChoice{dialog.selectedFiles().first(),
                      static_cast<int>(filters.indexOf(dialog.selectedNameFilter())) + 1};
}

std::optional<UserPrompts::FileChoice> DialogPrompts::openFile(const FileRequest& request) {
    return fileDialog(request, false);
}

std::optional<UserPrompts::FileChoice> DialogPrompts::saveFile(const FileRequest& request) {
    return fileDialog(request, true);
}

void DialogPrompts::about(const QString& title, const QString& text) {
    QMessageBox::about(parent_, title, text);
}

void DialogPrompts::beep() {
    QApplication::beep();
}

} // namespace parlex::gui
