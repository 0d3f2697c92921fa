#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace parlex::gui {

class StatusPanels;

// The right half of the window: the phrase text (Txt), its status bar (SBarD) and
// its toolbar (TBar). Speech files are not opened in the window yet, so the text is
// locked and the toolbar's buttons are disabled.
class SpeechPane : public QWidget {
    Q_OBJECT
public:
    explicit SpeechPane(QWidget* parent = nullptr);

    QPlainTextEdit* text() const { return text_; }
    // What the phrase keys say while no speech file is open.
    void showNotOpen();

private:
    QPlainTextEdit* text_;
    StatusPanels* status_;
};

} // namespace parlex::gui
