#pragma once

#include "core/codelists/listkey.h"
#include "gui/app/clipboardguard.h"
#include "session/byteeditor.h"
#include "session/session.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;
class QRadioButton;
class QScrollBar;

namespace parlex::gui {

class CodeListPane;

// The byte editor (Edit): one field of the current record changed by decimal entry.
// It shows what its ByteEditor model holds and hands it what the user does; the
// code lists it offers appear in the main window's code-list pane, which VS scrolls.
// The main window shows the field chosen through the session's cursor.
class EditDialog : public QDialog {
    Q_OBJECT
public:
    EditDialog(session::Session& session, session::UserPrompts& prompts, CodeListPane& codes,
               session::ByteEditor editor, QWidget* parent);
    const session::ByteEditor& model() const { return editor_; }

    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build();
    void showModel(); // everything from the model
    void selectRow(int row);
    void entryEdited(const QString& text);
    void encode(FieldWidth mode);
    void replace();
    void apply();
    void showCodes(ListKey key);
    void takeListPosition();
    void offerMaximum(FieldWidth mode, Qt::MouseButton button);
    void hoverMaximum(QLabel* label, FieldWidth mode);
    void resetHover(bool imageBorder);
    void popUpCodes();
    bool previewKey(QKeyEvent* key);
    bool filterEntryKey(QKeyEvent* key);

    session::Session& session_;
    session::UserPrompts& prompts_;
    CodeListPane& codes_;
    session::ByteEditor editor_;
    ClipboardGuard clipboard_; // only the numbers this dialog put there
    bool closing_ = false;

    QListWidget* list_ = nullptr;
    QLabel* hex_ = nullptr;     // L_H
    QLabel* decimal_ = nullptr; // L_D
    QLabel* image_ = nullptr;   // Img
    QScrollBar* scroll_ = nullptr;
    QLineEdit* entry_ = nullptr;
    QLabel* meaning_ = nullptr;
    QRadioButton* word_ = nullptr;
    QRadioButton* byte_ = nullptr;
    QLabel* encoded_ = nullptr; // Lbl3
    QLabel* maxWord_ = nullptr; // Lbl4
    QLabel* maxByte_ = nullptr; // Lbl5
    QPushButton* replace_ = nullptr;
    QPushButton* apply_ = nullptr;
    QPushButton* close_ = nullptr;
    QMenu* popup_ = nullptr;
};

} // namespace parlex::gui
