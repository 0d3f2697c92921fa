#pragma once

#include "session/optionsmodel.h"

#include <QDialog>
#include <array>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QGroupBox;
class QPushButton;
class QTabBar;

namespace parlex::gui {

// The options dialog (Options): tab 1 writes the code lists out, tab 2 holds the
// boxes of the interface and the file association. The boxes show the model and
// hand every click to it; the dialog itself decides nothing.
class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    // Over `owner`, whose caption and icon it takes. `association` may be null.
    OptionsDialog(session::Session& session, FileAssociation* association, QWidget* owner);

    const session::OptionsModel& model() const { return model_; }
    void done(int result) override;

protected:
    void changeEvent(QEvent* event) override; // a new language: every text again

private:
    void build();
    void showModel();
    void retranslate();
    void fitSize();

    session::Session& session_;
    session::OptionsModel model_;
    QTabBar* tabs_ = nullptr;
    QGroupBox* frame_ = nullptr;
    std::array<QCheckBox*, session::kOptionBoxCount> boxes_{};
    std::vector<QPushButton*> listButtons_;
    QPushButton* allButton_ = nullptr;
    QPushButton* closeButton_ = nullptr;
    QLabel* languageLabel_ = nullptr;
    QComboBox* language_ = nullptr;
    bool closing_ = false;
};

} // namespace parlex::gui
