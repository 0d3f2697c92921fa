#include "gui/prompts/dialogprompts.h"

#include "gui/app/drawings.h"
#include "gui/prompts/fontchooser.h"

#include <QApplication>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

namespace parlex::gui {

using session::UserPrompts;

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
    box.button(QMessageBox::Yes)->setText(QCoreApplication::translate("DialogPrompts", "Да"));
    box.button(QMessageBox::No)->setText(QCoreApplication::translate("DialogPrompts", "Нет"));
    if (withCancel)
        box.button(QMessageBox::Cancel)
            ->setText(QCoreApplication::translate("DialogPrompts", "Отмена"));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return withCancel ? Answer::Cancel : Answer::No;
    }
}

QStringList DialogPrompts::qtFilters(const std::vector<Filter>& filters) {
    QStringList out;
    for (const auto& f : filters)
        out << f.text + " (" + f.pattern + ")";
    return out;
}

int DialogPrompts::filterNumber(const std::vector<Filter>& filters, const QString& chosen) {
    const QStringList full = qtFilters(filters);
    for (std::size_t i = 0; i < filters.size(); ++i)
        if (chosen == filters[i].text || chosen == full[static_cast<qsizetype>(i)])
            return static_cast<int>(i) + 1;
    return 0;
}

std::optional<UserPrompts::FileChoice> DialogPrompts::fileDialog(const FileRequest& request,
                                                                 bool save) {
    const QStringList filters = qtFilters(request.filters);
    QFileDialog dialog(parent_, request.title, request.folder);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    const auto suffixOf = [&](const QString& filter) {
        const int number = filterNumber(request.filters, filter);
        return number > 0 ? request.filters[static_cast<std::size_t>(number - 1)].defaultSuffix
                          : QString();
    };
    if (request.filterIndex >= 1 && request.filterIndex <= filters.size()) {
        dialog.selectNameFilter(filters[request.filterIndex - 1]);
        dialog.setDefaultSuffix(suffixOf(filters[request.filterIndex - 1]));
    }
    // A name typed without an extension gets the chosen filter's one before the
    // dialog asks whether to replace an existing file.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&](const QString& filter) { dialog.setDefaultSuffix(suffixOf(filter)); });
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!request.proposedName.isEmpty())
        dialog.selectFile(request.proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return FileChoice{dialog.selectedFiles().first(),
                      std::max(1, filterNumber(request.filters, dialog.selectedNameFilter()))};
}

std::optional<UserPrompts::FileChoice> DialogPrompts::openFile(const FileRequest& request) {
    return fileDialog(request, false);
}

std::optional<UserPrompts::FileChoice> DialogPrompts::saveFile(const FileRequest& request) {
    return fileDialog(request, true);
}

void DialogPrompts::about(const QString& title, const QString& text) {
    // As QMessageBox::about, with the program's picture at 64 points drawn for the
    // screen's pixel ratio (the windows' icon has it only up to 64 pixels).
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, parent_);
    box.setIconPixmap(aboutPicture().pixmap(QSize(64, 64), box.devicePixelRatioF()));
    box.exec();
}

void DialogPrompts::beep() {
    QApplication::beep();
}

std::optional<unsigned> DialogPrompts::chooseColour(unsigned colour) {
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(colour), parent_);
    if (!chosen.isValid())
        return std::nullopt;
    return static_cast<unsigned>(chosen.rgb()) & 0xFFFFFFu;
}

std::optional<TextFont> DialogPrompts::chooseFont(const TextFont& font, double minSize,
                                                  double maxSize) {
    FontChooser dialog(font, minSize, maxSize, parent_);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.font();
}

} // namespace parlex::gui
