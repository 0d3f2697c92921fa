#pragma once

#include <QHash>
#include <QPixmap>
#include <QWidget>
#include <memory>

class QTextLayout;

namespace parlex::gui {

// A word-wrapped, read-only text that keeps its line breaking: each text is shaped
// and broken into lines once per width, font and alignment, and later shown by
// drawing the kept lines. The help texts are long and change on every move of the
// mouse from one field to another; a plain label shapes them again each time it is
// measured or painted, which made hovering slow. A text painted a second time is kept
// as a picture, so showing it again is one copy of pixels; the first paint draws the
// lines straight away, so the window does not hold a picture of a text shown once
// (the one at start among them).
class HelpText : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
public:
    explicit HelpText(QWidget* parent = nullptr);
    ~HelpText() override;

    void setText(const QString& text);
    const QString& text() const { return text_; }
    void setAlignment(Qt::Alignment alignment);
    Qt::Alignment alignment() const { return alignment_; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, 0}; }

    // The height of `text` broken into lines of `width` pixels in `font`.
    static int measure(const QString& text, const QFont& font, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct LaidOut {
        std::unique_ptr<QTextLayout> layout;
        QPixmap picture; // drawn on the second paint
        bool painted = false;
    };
    LaidOut& laidOut(const QString& text, int width) const;
    void forgetLayouts();

    QString text_;
    Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignTop;
    // Laid-out texts for the current font and alignment, by width and text.
    mutable QHash<QPair<int, QString>, std::shared_ptr<LaidOut>> layouts_;
};

} // namespace parlex::gui
