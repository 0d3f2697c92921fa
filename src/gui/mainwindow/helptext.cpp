#include "gui/mainwindow/helptext.h"

#include "gui/app/accessibletext.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>

#include <utility>

namespace parlex::gui {
namespace {

// More than all help texts at a few widths; beyond it the cache starts again, so
// a long session of resizing does not grow it without end.
constexpr qsizetype kMostLayouts = 128;

void breakLines(QTextLayout& layout, int width) {
    layout.beginLayout();
    qreal y = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, y));
        y += line.height();
    }
    layout.endLayout();
}

// A text layout knows no CR LF: each line break of the text becomes the Unicode line
// separator, which ends a line there, so the title, the empty line and every body
// line stand on lines of their own.
QString withLineSeparators(const QString& text) {
    if (!text.contains(QLatin1Char('\n')))
        return text;
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QString(QChar::LineSeparator));
    shown.replace(QLatin1Char('\n'), QChar::LineSeparator);
    return shown;
}

int heightOf(const QTextLayout& layout) {
    return layout.lineCount() == 0 ? 0 : qCeil(layout.boundingRect().height());
}

} // namespace

HelpText::HelpText(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    markAsStaticText(this);
}

HelpText::~HelpText() = default;

int HelpText::measure(const QString& text, const QFont& font, int width) {
    QTextLayout layout(withLineSeparators(text), font);
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    breakLines(layout, width);
    return heightOf(layout);
}

HelpText::LaidOut& HelpText::laidOut(const QString& text, int width) const {
    const auto key = qMakePair(width, text);
    if (auto found = layouts_.constFind(key); found != layouts_.cend())
        return **found;
    if (layouts_.size() >= kMostLayouts)
        layouts_.clear();
    auto entry = std::make_shared<LaidOut>();
    entry->layout = std::make_unique<QTextLayout>(withLineSeparators(text), font());
    QTextOption option(alignment_);
    option.setWrapMode(QTextOption::WordWrap);
    entry->layout->setTextOption(option);
    entry->layout->setCacheEnabled(true); // keep the shaped glyphs for drawing
    breakLines(*entry->layout, width);
    layouts_.insert(key, entry);
    return *entry;
}

void HelpText::forgetLayouts() {
    layouts_.clear();
    updateGeometry();
    update();
}

void HelpText::setText(const QString& text) {
    if (text == text_)
        return;
    // Hidden, the width is not yet the one the text will show at: it is laid out when
    // the area is, not here.
    const bool shown = isVisible();
    const int before = shown ? heightForWidth(width()) : -1;
    text_ = text;
    if (!shown || heightForWidth(width()) != before)
        updateGeometry(); // only a new height makes the area lay out again
    update();
    announceTextChange(this);
}

void HelpText::setAlignment(Qt::Alignment alignment) {
    if (alignment == alignment_)
        return;
    alignment_ = alignment;
    forgetLayouts();
}

int HelpText::heightForWidth(int width) const {
    return text_.isEmpty() ? 0 : heightOf(*laidOut(text_, std::max(width, 1)).layout);
}

QSize HelpText::sizeHint() const {
    // Until its area has given it a width the text has none to be laid out at.
    if (!testAttribute(Qt::WA_Resized))
        return {width(), 0};
    return {width(), heightForWidth(width())};
}

void HelpText::paintEvent(QPaintEvent*) {
    if (text_.isEmpty())
        return;
    LaidOut& shown = laidOut(text_, width());
    const auto drawLines = [&](QPainter& painter) {
        painter.setPen(palette().color(QPalette::WindowText));
        shown.layout->draw(&painter, QPointF(0, 0));
    };
    QPainter painter(this);
    if (!std::exchange(shown.painted, true)) {
        drawLines(painter);
        return;
    }
    const qreal ratio = devicePixelRatioF();
    if (shown.picture.isNull() || shown.picture.devicePixelRatio() != ratio) {
        const QSize size(width(), heightOf(*shown.layout));
        shown.picture = QPixmap(size * ratio);
        shown.picture.setDevicePixelRatio(ratio);
        shown.picture.fill(Qt::transparent);
        QPainter onPicture(&shown.picture);
        drawLines(onPicture);
    }
    painter.drawPixmap(0, 0, shown.picture);
}

void HelpText::changeEvent(QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::PaletteChange)
        forgetLayouts();
    QWidget::changeEvent(event);
}

} // namespace parlex::gui
