#pragma once

#include "prompts/userprompts.h"

class QWidget;

namespace parlex::gui {

// The prompts as Qt dialogs over a parent window.
class DialogPrompts : public UserPrompts {
public:
    explicit DialogPrompts(QWidget* parent = nullptr) : parent_(parent) {}
    void setParent(QWidget* parent) { parent_ = parent; }

    void message(Icon icon, const QString& title, const QString& text) override;
    Answer question(const QString& title, const QString& text, bool withCancel) override;
    std::optional<FileChoice> openFile(const FileRequest& request) override;
    std::optional<FileChoice> saveFile(const FileRequest& request) override;
    void about(const QString& title, const QString& text) override;
    void beep() override;

private:
    std::optional<FileChoice> fileDialog(const FileRequest& request, bool save);
    QWidget* parent_;
};

} // namespace parlex::gui
