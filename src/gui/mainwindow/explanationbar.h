#pragma once

#include "explain/explainer.h"

#include <QFrame>

namespace parlex::gui {

class ElidedLabel;

// The frame Frame1 under the help text: the sentence about the field (LblInfo, dark
// red for a wrong value) and the bold remark behind it (LblSize).
class ExplanationBar : public QFrame {
    Q_OBJECT
public:
    static const QColor kAlert;

    explicit ExplanationBar(QWidget* parent = nullptr);
    void showExplanation(const Explanation& explanation);

private:
    ElidedLabel* info_;
    ElidedLabel* remark_;
    bool alert_ = false;
};

} // namespace parlex::gui
