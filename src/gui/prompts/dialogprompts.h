#pragma once

#include "session/userprompts.h"

class QWidget;

namespace parlex::gui {

// The prompts as Qt dialogs over a parent window.
class DialogPrompts : public session::UserPrompts {
public:
    explicit DialogPrompts(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }

    void message(Icon icon, const QString& title, const QString& text) override;
    Answer question(const QString& title, const QString& text, bool withCancel) override;
    std::optional<FileChoice> openFile(const FileRequest& request) override;
    std::optional<FileChoice> saveFile(const FileRequest& request) override;
    void about(const QString& title, const QString& text) override;
    void beep() override;
    std::optional<unsigned> chooseColour(unsigned colour) override;
    std::optional<TextFont> chooseFont(const TextFont& font, double minSize,
                                       double maxSize) override;

    // The filter strings a Qt file dialog is given for `filters`: the user's text
    // followed by the pattern in brackets, which the dialog hides, so that the list
    // shows the texts exactly as written ("все файлы (*.*)") while "*" matches.
    static QStringList qtFilters(const std::vector<Filter>& filters);
    // The number (from 1) of the filter a dialog names as chosen, whether it names
    // it with or without its hidden pattern; 0 if none.
    static int filterNumber(const std::vector<Filter>& filters, const QString& chosen);

private:
    std::optional<FileChoice> fileDialog(const FileRequest& request, bool save);
    QWidget* parent_;
};

} // namespace parlex::gui
