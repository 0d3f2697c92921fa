#pragma once

#include <QLabel>

namespace parlex::gui {

// A one-line label that never cuts its text at the window's edge: text that does
// not fit ends in "…", and the whole text is then its tool tip. text() is the whole
// text at all times.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget* parent = nullptr);
    void setFullText(const QString& text);
    bool isElided() const;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void updateToolTip();
};

} // namespace parlex::gui
