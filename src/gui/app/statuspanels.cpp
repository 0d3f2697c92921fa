#include "gui/app/statuspanels.h"

#include "gui/app/accessibletext.h"

#include "core/platform/files.h"
#include "core/text/pathfit.h"

#include <algorithm>

namespace parlex::gui {

void StatusPanels::setPath(int panel, const std::filesystem::path& path, int spare) {
    QLabel* shown = label(panel);
    const QFontMetrics metrics(shown->font());
    const std::string fitted =
        text::fitPath(platform::utf8(path), platform::utf8(path.filename()),
                      shown->contentsRect().width() - std::max(0, shown->indent()), spare,
                      [&](std::string_view s) {
                          return metrics.horizontalAdvance(
                              QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())));
                      });
    setText(panel, QString::fromStdString(fitted));
}

void StatusPanels::setText(int panel, const QString& text) {
    QLabel* shown = label(panel);
    if (shown->text() == text)
        return;
    shown->setText(text);
    announceTextChange(shown);
}

StatusPanels::StatusPanels(const QString& name, int panels, int stretch, QWidget* parent)
    : SelfPlacingFrame(parent), stretch_(stretch) {
    setObjectName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (int i = 1; i <= panels; ++i) {
        auto* label = new QLabel(this);
        label->setObjectName(name + "_" + QString::number(i));
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setMinimumWidth(16);
        label->setTextFormat(Qt::PlainText);
        markAsStaticText(label);
        labels_.push_back(label);
        pictures_.push_back(nullptr);
    }
}

void StatusPanels::setPicture(int panel, const QIcon& icon) {
    QLabel* shown = label(panel);
    auto& picture = pictures_.at(static_cast<std::size_t>(panel - 1));
    if (!picture) {
        picture = new QLabel(shown);
        picture->setObjectName(shown->objectName() + "_picture");
        shown->setIndent(kPicture + 3); // the text starts behind it
    }
    picture->setPixmap(icon.pixmap(kPicture, kPicture));
    picture->setFixedSize(kPicture, kPicture);
    picture->show();
    placeChildren();
}

QSize StatusPanels::sizeHint() const {
    // One line of text in a sunken frame, whatever the panels hold.
    return {100, fontMetrics().height() + 2 * labels_.front()->frameWidth() + 2};
}

void StatusPanels::placeChildren() {
    const auto widthOf = [](const QLabel* l) {
        return l->minimumWidth() == l->maximumWidth()
                   ? l->minimumWidth()
                   : std::max(l->minimumWidth(), l->sizeHint().width());
    };
    int fixed = 0;
    for (std::size_t i = 0; i < labels_.size(); ++i)
        if (static_cast<int>(i) + 1 != stretch_)
            fixed += widthOf(labels_[i]) + kSpacing;
    int x = 0;
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        QLabel* l = labels_[i];
        const int w =
            static_cast<int>(i) + 1 == stretch_ ? std::max(16, width() - fixed) : widthOf(l);
        l->setGeometry(x, 0, w, height());
        if (QLabel* picture = pictures_[i])
            picture->move(l->frameWidth() + 1, (height() - kPicture) / 2);
        x += w + kSpacing;
    }
}

} // namespace parlex::gui
