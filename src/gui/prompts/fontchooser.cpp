#include "gui/prompts/fontchooser.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

namespace parlex::gui {

FontChooser::FontChooser(const TextFont& font, double minSize, double maxSize, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(tr("Шрифт"));
    family_ = new QFontComboBox(this);
    family_->setObjectName("FontFamily");
    family_->setCurrentFont(QFont(QString::fromStdString(font.family)));
    size_ = new QDoubleSpinBox(this);
    size_->setObjectName("FontSize");
    size_->setRange(minSize, maxSize);
    size_->setDecimals(2);
    size_->setValue(font.pointSize);
    bold_ = new QCheckBox(tr("Жирный"), this);
    bold_->setObjectName("FontBold");
    bold_->setChecked(font.bold);
    italic_ = new QCheckBox(tr("Курсив"), this);
    italic_->setObjectName("FontItalic");
    italic_->setChecked(font.italic);
    sample_ = new QLabel("АаБбВв AaBbYyZz", this);
    sample_->setMinimumHeight(40);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("ОК"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Отмена"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* form = new QFormLayout(this);
    form->addRow(tr("Шрифт:"), family_);
    form->addRow(tr("Размер (%1-%2):").arg(minSize).arg(maxSize), size_);
    form->addRow(bold_);
    form->addRow(italic_);
    form->addRow(sample_);
    form->addRow(buttons);

    connect(family_, &QFontComboBox::currentFontChanged, this, &FontChooser::showSample);
    connect(size_, &QDoubleSpinBox::valueChanged, this, &FontChooser::showSample);
    connect(bold_, &QCheckBox::toggled, this, &FontChooser::showSample);
    connect(italic_, &QCheckBox::toggled, this, &FontChooser::showSample);
    showSample();
}

TextFont FontChooser::font() const {
    return {family_->currentFont().family().toStdString(), size_->value(), bold_->isChecked(),
            italic_->isChecked()};
}

void FontChooser::showSample() {
    QFont f = family_->currentFont();
    f.setPointSizeF(size_->value());
    f.setBold(bold_->isChecked());
    f.setItalic(italic_->isChecked());
    sample_->setFont(f);
}

} // namespace parlex::gui
