#pragma once

#include <QLabel>
#include <QStaticText>

namespace parlex::gui {

// A one-line label that never cuts its text at the window's edge: text that does
// not fit ends in "…", and the whole text is then its tool tip. text() is the whole
// text at all times. The text is measured once when it is set and the shown line is
// kept until the text or the width changes: the explanation changes on every move
// of the mouse.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    void setFullText(const QString& text);
    bool isElided() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void measure();
    void updateToolTip();

    int advance_ = 0;     // the width of the whole text
    int shownWidth_ = -1; // the width `shown_` was made for
    QStaticText shown_;   // the text as painted, elided if need be
};

} // namespace parlex::gui
