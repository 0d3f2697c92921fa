#pragma once

#include "core/settings/options.h"

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;
class QFontComboBox;
class QLabel;

namespace parlex::gui {

// A small font dialog: a font that exists, a point size within limits, bold and
// italic, and a sample. Qt's own font dialog cannot hold its sizes to a range.
class FontChooser : public QDialog {
    Q_OBJECT
public:
    FontChooser(const TextFont& font, double minSize, double maxSize, QWidget* parent = nullptr);
    TextFont font() const;

private:
    void showSample();

    QFontComboBox* family_;
    QDoubleSpinBox* size_;
    QCheckBox* bold_;
    QCheckBox* italic_;
    QLabel* sample_;
};

} // namespace parlex::gui
