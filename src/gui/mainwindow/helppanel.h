#pragma once

#include "core/text/language.h"
#include <QScrollArea>

namespace parlex::gui {

class HelpText;

// The help text of the field under the mouse (LblHelp), in an area that scrolls
// when the text is longer than the area is high. A click on the text makes it
// larger (8, 10, 12, 14, then 8 again), a right click changes its alignment (left,
// right, centre).
class HelpPanel : public QScrollArea {
    Q_OBJECT
public:
    explicit HelpPanel(QWidget* parent = nullptr);

    // The help text of the field that starts at `fieldIndex`, in the window's language.
    void showFieldHelp(int fieldIndex);
    void setLanguage(Language language);
    void setFontSize(int points);
    void setAlignmentIndex(int index); // 0 left, 1 right, 2 centre
    int fontSize() const { return fontSize_; }
    int alignmentIndex() const { return alignment_; }
    void setToolTipsShown(bool on) { toolTips_ = on; }

    // Tall enough for the longest help text at the smallest size and this width.
    QSize sizeHint() const override;

signals:
    void styleChanged(int fontSize, int alignment);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HelpText* label_;
    mutable int hintWidth_ = -1; // the width the cached height was measured at
    mutable int hintHeight_ = 0;
    int fontSize_ = 8;
    int alignment_ = 0;
    bool toolTips_ = false;
    Language language_ = Language::Russian;
    int fieldShown_ = -1;
};

} // namespace parlex::gui
