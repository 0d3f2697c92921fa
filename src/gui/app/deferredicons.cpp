#include "gui/app/deferredicons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPointer>
#include <QWidget>

namespace parlex::gui {
namespace {

// The icon of one of the base style's pictures, asked for the first time it is drawn
// or measured.
class DeferredIcon : public QIconEngine {
public:
    DeferredIcon(QStyle* style, QStyle::StandardPixmap picture, const QWidget* widget)
        : style_(style), picture_(picture), widget_(widget) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().pixmap(size, mode, state);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override {
        return icon().pixmap(size, scale, mode, state);
    }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return icon().actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
        return icon().availableSizes(mode, state);
    }
    QIconEngine* clone() const override { return new DeferredIcon(*this); }

private:
    const QIcon& icon() {
        if (!read_) {
            read_ = true;
            if (style_)
                icon_ = style_->standardIcon(picture_, nullptr, widget_);
        }
        return icon_;
    }

    QPointer<QStyle> style_;
    QStyle::StandardPixmap picture_;
    QPointer<const QWidget> widget_;
    bool read_ = false;
    QIcon icon_;
};

} // namespace

QIcon DeferredIconStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                      const QWidget* widget) const {
    // An option lives only as long as the call: such a picture is read at once.
    if (option)
        return QProxyStyle::standardIcon(picture, option, widget);
    return QIcon(new DeferredIcon(baseStyle(), picture, widget));
}

} // namespace parlex::gui
