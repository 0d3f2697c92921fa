#include "gui/speech/filepropwindow.h"

#include "core/speech/edtsummary.h"
#include "gui/app/closeanimation.h"
#include "gui/app/placement.h"
#include "session/speechdocument.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>

namespace parlex::gui {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kInnerWidth = 5910; // twips
constexpr int kInnerHeight = 3960;
constexpr int kTextLeft = 60;
constexpr int kLabelLeft = 4005;
constexpr int kRowStep = 200;
constexpr int kCloseMilliseconds = 400;

const QString kStars(95, QChar('*'));

// The window's rows from top to bottom: the drawn text at its height, and the label
// beside it with the top it gets (the labels 0-5 carry the values, 6-15 the keys).
struct Row {
    int y;
    const char* text;
    int label; // -1: a line of stars, no label
    int labelTop;
    const char* keyText; // the fixed text of a key label
};
constexpr Row kRows[] = {
    {80, nullptr, -1, 0, nullptr},
    {260, QT_TRANSLATE_NOOP("FilePropWindow", "Файл открыт как"), 0, 255, nullptr},
    {460, QT_TRANSLATE_NOOP("FilePropWindow", "Число существующих строк"), 1, 455, nullptr},
    {660, QT_TRANSLATE_NOOP("FilePropWindow", "Номер первой существующей строки"), 2, 655, nullptr},
    {860, QT_TRANSLATE_NOOP("FilePropWindow", "Номер последней существующей строки"), 3, 855,
     nullptr},
    {1060, QT_TRANSLATE_NOOP("FilePropWindow", "Текущий размер файла на диске"), 4, 1055, nullptr},
    {1260, QT_TRANSLATE_NOOP("FilePropWindow", "Предпологаемый размер при сохранении"), 5, 1255,
     nullptr},
    {1520, nullptr, -1, 0, nullptr},
    {1720, "Hot Keys:", 6, 1720, "NumPad ..."},
    {1920, QT_TRANSLATE_NOOP("FilePropWindow", "Перейти к началу"), 7, 1920, "Home"},
    {2120, QT_TRANSLATE_NOOP("FilePropWindow", "Перейти в конец"), 8, 2120, "End"},
    {2320, QT_TRANSLATE_NOOP("FilePropWindow", "Следующая строка"), 9, 2320,
     QT_TRANSLATE_NOOP("FilePropWindow", "Стрелка вправо")},
    {2520, QT_TRANSLATE_NOOP("FilePropWindow", "Предыдущая строка"), 10, 2520,
     QT_TRANSLATE_NOOP("FilePropWindow", "Стрелка влево")},
    {2720, QT_TRANSLATE_NOOP("FilePropWindow", "Перейти к первой существующей строке"), 11, 2720,
     "Page Down"},
    {2920, QT_TRANSLATE_NOOP("FilePropWindow", "Перейти к последней существующей строке"), 12, 2920,
     "Page Up"},
    {3160, nullptr, -1, 0, nullptr},
    {3320, QT_TRANSLATE_NOOP("FilePropWindow", "Шрифт и фон"), 13, 3320, "Ctrl+F3"},
    {3520, QT_TRANSLATE_NOOP("FilePropWindow", "Сохранить файл как..."), 14, 3520, "Ctrl+F2"},
    {3720, QT_TRANSLATE_NOOP("FilePropWindow", "Вызов этого окна"), 15, 3720, "Ctrl+F1"},
};

QString translated(const char* text) {
    return QCoreApplication::translate("FilePropWindow", text);
}

QString caption(const session::SpeechDocument& speech) {
    if (!speech.file())
        return translated(QT_TRANSLATE_NOOP("FilePropWindow", "Файл не открыт"));
    if (speech.isNew())
        return translated(QT_TRANSLATE_NOOP("FilePropWindow", "Новый файл"));
    return QString::fromStdString(speech.file()->title());
}

} // namespace

FilePropWindow::FilePropWindow(const session::SpeechDocument& speech, bool shrinkOnClose,
                               QWidget* parent)
    : QDialog(parent), shrinkOnClose_(shrinkOnClose) {
    setObjectName("FileProp");
    setWindowTitle(caption(speech));
    setModal(true);

    QFont bold = font();
    bold.setBold(true);
    // The layout's rows are 200 twips apart; a taller font spreads the whole window.
    scale_ = std::max(1.0, (QFontMetrics(bold).height() + 1) * kTwipsPerPixel / double(kRowStep));

    const EdtSummary s = summarize(speech.file(), speech.options().language);
    const std::string values[] = {s.kindText, s.countText,      s.firstText,
                                  s.lastText, s.sizeOnDiskText, s.sizeAfterSaveText};
    labels_.resize(16);
    for (const Row& row : kRows) {
        if (row.label < 0)
            continue;
        auto* label = new QLabel(this);
        label->setObjectName("Lbl" + QString::number(row.label));
        label->setFont(bold);
        label->setText(row.keyText ? translated(row.keyText)
                                   : QString::fromStdString(values[row.label]));
        label->adjustSize();
        // The caption beside it is painted, not a widget: a screen reader hears it here.
        label->setAccessibleDescription(translated(row.text));
        label->move(px(kLabelLeft), px(row.labelTop));
        label->installEventFilter(this); // a click on a label closes the window too
        labels_[static_cast<std::size_t>(row.label)] = label;
    }
    setFixedSize(px(kInnerWidth), px(kInnerHeight));

    if (parent) {
        const QScreen* screen = parent->screen();
        move(centredOver(parent->window()->frameGeometry(), frameSize(),
                         screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768)));
    }
}

int FilePropWindow::px(int twips) const {
    return static_cast<int>(twips * scale_ / kTwipsPerPixel);
}

QString FilePropWindow::value(int index) const {
    return labels_.at(static_cast<std::size_t>(index))->text();
}

void FilePropWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int ascent = fontMetrics().ascent();
    for (const Row& row : kRows)
        painter.drawText(px(kTextLeft), px(row.y) + ascent,
                         row.text ? translated(row.text) : kStars);
}

// A key that types something closes the window (Enter and Escape among them); an
// arrow, a function key or a modifier alone does not.
void FilePropWindow::keyPressEvent(QKeyEvent* event) {
    if (!event->text().isEmpty())
        done(QDialog::Accepted);
}

void FilePropWindow::mousePressEvent(QMouseEvent*) {
    done(QDialog::Accepted);
}

bool FilePropWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && qobject_cast<QLabel*>(watched)) {
        done(QDialog::Accepted);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void FilePropWindow::done(int result) {
    if (closing_)
        return;
    closing_ = true;
    if (!shrinkOnClose_ || !isVisible()) {
        QDialog::done(result);
        return;
    }
    shrinkAway(this, kCloseMilliseconds, [this, result] { QDialog::done(result); });
}

} // namespace parlex::gui
