#pragma once

#include <QFrame>
#include <QLabel>
#include <vector>

namespace parlex::gui {

// A status bar of numbered panels (from 1). Panel i is a label named "<bar>_<i>".
class StatusPanels : public QFrame {
public:
    // `stretch` is the panel that takes the width the others leave (0: none).
    StatusPanels(const QString& name, int panels, int stretch, QWidget* parent = nullptr);

    void setText(int panel, const QString& text) { label(panel)->setText(text); }
    QString text(int panel) const { return label(panel)->text(); }
    QLabel* label(int panel) const { return labels_.at(panel - 1); }

private:
    std::vector<QLabel*> labels_;
};

} // namespace parlex::gui
