#pragma once

#include <QWidget>

class QAction;
class QKeyEvent;
class QPlainTextEdit;

namespace parlex::session {
class SpeechDocument;
}

namespace parlex::gui {

class StatusPanels;

// The right half of the window: the phrase text (Txt), its status bar (SBarD) and
// its toolbar (TBar), showing the session's speech document and handing it what the
// user does. Every keystroke is stored into the current phrase at once.
class SpeechPane : public QWidget {
    Q_OBJECT
public:
    SpeechPane(session::SpeechDocument& speech, QWidget* parent = nullptr);

    QPlainTextEdit* text() const { return text_; }
    QAction* button(const QString& key) const;
    // The properties window of the speech file, modal over the main window.
    void showProperties();
    // The colour and the font of the phrase text from the options. The font waits for
    // the first speech document: an empty pane shows no text, and loading a font that
    // shows nothing would cost the start its time.
    void applyStyle();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override; // a new language: every text again

private:
    void retranslate();
    void applyFont();
    void showDocument();
    void showPhrase();
    void showCounters();
    void showPath();
    void textEdited();
    static bool swallowed(const QKeyEvent& key);

    session::SpeechDocument& speech_;
    QPlainTextEdit* text_;
    StatusPanels* status_;
    bool notOpenShown_ = false; // the path panel tells that no speech file is open
    bool fontApplied_ = false;  // the phrase font is set: a document has been shown
};

} // namespace parlex::gui
