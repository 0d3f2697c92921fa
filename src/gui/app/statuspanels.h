#pragma once

#include "gui/app/selfplacingframe.h"

#include <QIcon>
#include <QLabel>
#include <filesystem>
#include <vector>

namespace parlex::gui {

// A status bar of numbered panels (from 1). Panel i is a label named "<bar>_<i>".
// The bar places its panels itself, so a panel's new text is laid out within the bar.
class StatusPanels : public SelfPlacingFrame {
public:
    // `stretch` is the panel that takes the width the others leave (0: none).
    StatusPanels(const QString& name, int panels, int stretch, QWidget* parent = nullptr);

    void setText(int panel, const QString& text);
    QString text(int panel) const { return label(panel)->text(); }
    // A file's path shortened to fit the panel's width, with `spare` pixels left free:
    // the start of the path gives way first, the file name last.
    void setPath(int panel, const std::filesystem::path& path, int spare);
    QLabel* label(int panel) const { return labels_.at(static_cast<std::size_t>(panel - 1)); }
    // A 16-pixel picture at the panel's left, before its text.
    void setPicture(int panel, const QIcon& icon);
    QLabel* picture(int panel) const { return pictures_.at(static_cast<std::size_t>(panel - 1)); }

    QSize sizeHint() const override;

protected:
    void placeChildren() override;

private:
    std::vector<QLabel*> labels_;
    std::vector<QLabel*> pictures_; // null where a panel has none
    int stretch_;
    static constexpr int kSpacing = 2;
    static constexpr int kPicture = 16;
};

} // namespace parlex::gui
