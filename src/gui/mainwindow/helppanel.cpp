#include "gui/mainwindow/helppanel.h"
#include "gui/mainwindow/helptext.h"

#include "core/codelists/resources.h"
#include "core/explain/fieldlayout.h"

#include <QMouseEvent>
#include <algorithm>
#include <vector>

namespace parlex::gui {
namespace {

constexpr int kSmallest = 8;
constexpr int kLargest = 14;

QString helpOf(int fieldIndex, Language language) {
    return QString::fromStdString(helpText(fieldIndex, language).value_or(std::string()))
        .replace("\r\n", "\n");
}

} // namespace

HelpPanel::HelpPanel(QWidget* parent) : QScrollArea(parent) {
    setObjectName("HelpArea");
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    label_ = new HelpText(this);
    label_->setObjectName("LblHelp");
    label_->setMouseTracking(true);
    label_->installEventFilter(this);
    setWidget(label_);
    setFontSize(kSmallest);
}

void HelpPanel::showFieldHelp(int fieldIndex) {
    fieldShown_ = fieldIndex;
    label_->setText(helpOf(fieldIndex, language_));
}

void HelpPanel::setLanguage(Language language) {
    if (language == language_)
        return;
    language_ = language;
    hintWidth_ = -1; // the longest texts are others
    if (fieldShown_ >= 0)
        showFieldHelp(fieldShown_);
    updateGeometry();
}

void HelpPanel::setFontSize(int points) {
    fontSize_ = points < kSmallest || points > kLargest ? kSmallest : points;
    QFont f = label_->font();
    f.setPointSize(fontSize_);
    label_->setFont(f);
}

void HelpPanel::setAlignmentIndex(int index) {
    alignment_ = index < 0 || index > 2 ? 0 : index;
    const Qt::Alignment horizontal[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    label_->setAlignment(horizontal[alignment_] | Qt::AlignTop);
}

QSize HelpPanel::sizeHint() const {
    QFont f = label_->font();
    f.setPointSize(kSmallest);
    // The window's width less its margins: the texts are measured once for a width,
    // and this one is known before the area is laid out.
    const int width = std::max(200, window()->width() - 16);
    if (width == hintWidth_)
        return {width, hintHeight_};
    // While the window is still being built its width is not yet its own; an estimate
    // serves until it is polished for showing (see event()).
    if (!testAttribute(Qt::WA_WState_Polished))
        return {width, QFontMetrics(f).height() * 12};
    // Laying out text is the dear part of starting: only the few longest texts can
    // be the tallest, so only they are measured.
    std::vector<QString> texts;
    for (const FieldInfo& field : fieldTable())
        texts.push_back(helpOf(field.index, language_));
    constexpr std::size_t kCandidates = 3;
    std::partial_sort(texts.begin(), texts.begin() + kCandidates, texts.end(),
                      [](const QString& a, const QString& b) { return a.size() > b.size(); });
    int tallest = 0;
    for (std::size_t i = 0; i < kCandidates; ++i)
        tallest = std::max(tallest, HelpText::measure(texts[i], f, width));
    hintWidth_ = width;
    hintHeight_ = tallest + 2 * frameWidth() + 4;
    return {width, hintHeight_};
}

bool HelpPanel::event(QEvent* event) {
    if (event->type() == QEvent::Polish)
        updateGeometry(); // the estimate gives way to the measured height
    return QScrollArea::event(event);
}

bool HelpPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != label_)
        return QScrollArea::eventFilter(watched, event);
    if (event->type() == QEvent::MouseMove)
        label_->setToolTip(toolTips_ && !label_->text().isEmpty()
                               ? tr("Л. клик-размер шрифта П. клик-положение")
                               : QString());
    if (event->type() != QEvent::MouseButtonPress)
        return false;
    if (label_->text().isEmpty())
        return true;
    if (static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
        setAlignmentIndex((alignment_ + 1) % 3);
    else
        setFontSize(fontSize_ + 2);
    emit styleChanged(fontSize_, alignment_);
    return true;
}

} // namespace parlex::gui
