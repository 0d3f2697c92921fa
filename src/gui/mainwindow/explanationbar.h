#pragma once

#include "core/explain/explainer.h"

#include "gui/app/selfplacingframe.h"

namespace parlex::gui {

class ElidedLabel;

// The frame Frame1 under the help text: the sentence about the field (LblInfo, dark
// red for a wrong value) and the bold remark behind it (LblSize).
class ExplanationBar : public SelfPlacingFrame {
    Q_OBJECT
public:
    static const QColor kAlert;

    explicit ExplanationBar(QWidget* parent = nullptr);
    void showExplanation(const Explanation& explanation);
    QSize sizeHint() const override;

protected:
    // The sentence from the left, the remark right behind it; the sentence gives up
    // width first when both do not fit.
    void placeChildren() override;

private:
    ElidedLabel* info_;
    ElidedLabel* remark_;
    bool alert_ = false;
};

} // namespace parlex::gui
