#pragma once

#include <QDialog>
#include <vector>

class QLabel;

namespace parlex::session {
class SpeechDocument;
}

namespace parlex::gui {

// The properties window (FileProp): what the open speech file holds, counted from
// the phrases in memory, and the keys that work on it. It offers nothing to do and
// closes at the first key that types a character or at a click; arrows leave it.
class FilePropWindow : public QDialog {
    Q_OBJECT
public:
    // `shrinkOnClose`: the window shrinks to its centre as it closes.
    FilePropWindow(const session::SpeechDocument& speech, bool shrinkOnClose,
                   QWidget* parent = nullptr);

    QString value(int index) const; // the text of Lbl(index), 0-15
    void done(int result) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int px(int twips) const;

    std::vector<QLabel*> labels_;
    double scale_ = 1; // twips to pixels, grown with a font taller than the layout's rows
    bool shrinkOnClose_;
    bool closing_ = false;
};

} // namespace parlex::gui
