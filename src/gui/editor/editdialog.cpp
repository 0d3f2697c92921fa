#include "gui/editor/editdialog.h"

#include "core/entry/numberentry.h"
#include "gui/app/closeanimation.h"
#include "gui/app/keyboard.h"
#include "gui/app/placement.h"
#include "gui/codes/codelistpane.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

const QColor kOutOfRange{255, 0, 0};
const QColor kOffered{0, 0, 192}; // the greatest value under the mouse, in its own mode
const QColor kEncodedBack{224, 224, 224};
constexpr int kCloseMilliseconds = 200;
constexpr int kListStep = 10; // VS moves the main window's list ten rows at a time

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

void setTextColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette p = widget->palette();
    p.setColor(role, colour);
    widget->setPalette(p);
}

} // namespace

EditDialog::EditDialog(session::Session& session, session::UserPrompts& prompts,
                       CodeListPane& codes, session::ByteEditor editor, QWidget* parent)
    : QDialog(parent), session_(session), prompts_(prompts), codes_(codes),
      editor_(std::move(editor)) {
    setObjectName("Edit");
    build();
    // A document replaced behind the dialog (reloaded from disk) has other records.
    connect(&session_.document(), &session::ScriptDocument::replaced, this, &QDialog::reject);
    takeListPosition();
    for (int row = 0; row < static_cast<int>(editableFields().size()); ++row)
        list_->addItem(q(entry::rowText(editableFields()[static_cast<std::size_t>(row)],
                                        session_.options().language)));
    list_->setMinimumHeight(list_->sizeHintForRow(0) * 14);
    {
        const QSignalBlocker busy(list_); // the first choice is the program's, made once
        list_->setCurrentRow(editor_.row());
    }
    showModel();
    adjustSize();
    const QScreen* screen = parent->screen();
    move(centredOver(parent->frameGeometry(), frameSize(),
                     screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768)));
}

void EditDialog::build() {
    auto* frame1 = new QGroupBox(tr("Выбор байта"), this);
    frame1->setObjectName("Frame1");
    list_ = new QListWidget(frame1);
    list_->setObjectName("List");
    list_->setUniformItemSizes(true);

    auto* frame2 = new QGroupBox("Current", frame1);
    frame2->setObjectName("Frame2");
    auto* lbl1 = new QLabel("Hex", frame2);
    lbl1->setObjectName("Lbl1");
    hex_ = new QLabel(frame2);
    hex_->setObjectName("L_H");
    auto* lbl2 = new QLabel("Dec", frame2);
    lbl2->setObjectName("Lbl2");
    decimal_ = new QLabel(frame2);
    decimal_->setObjectName("L_D");
    for (QLabel* value : {hex_, decimal_})
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    image_ = new QLabel(frame2);
    image_->setObjectName("Img");
    image_->setPixmap(style()->standardIcon(QStyle::SP_FileDialogDetailedView).pixmap(16, 16));
    image_->setFrameShape(QFrame::NoFrame);
    image_->setCursor(Qt::PointingHandCursor);
    auto* currentLayout = new QGridLayout(frame2);
    currentLayout->addWidget(lbl1, 0, 0);
    currentLayout->addWidget(hex_, 0, 1);
    currentLayout->addWidget(lbl2, 1, 0);
    currentLayout->addWidget(decimal_, 1, 1);
    currentLayout->addWidget(image_, 0, 2, 2, 1, Qt::AlignRight | Qt::AlignVCenter);
    currentLayout->setColumnStretch(1, 1);

    scroll_ = new QScrollBar(Qt::Vertical, frame1);
    scroll_->setObjectName("VS");
    scroll_->setEnabled(false);
    scroll_->setRange(0, 0);
    scroll_->setSingleStep(kListStep);
    scroll_->setPageStep(kListStep);

    entry_ = new QLineEdit(frame1);
    entry_->setObjectName("Txt");
    meaning_ = new QLabel(frame1);
    meaning_->setObjectName("TxtMeaning"); // what the typed number means in the field's list
    meaning_->setWordWrap(true);

    auto* frame3 = new QGroupBox("Encode number as", frame1);
    frame3->setObjectName("Frame3");
    word_ = new QRadioButton("&Word", frame3);
    word_->setObjectName("OptWord");
    byte_ = new QRadioButton("&Byte", frame3);
    byte_->setObjectName("OptByte");
    for (QRadioButton* option : {word_, byte_})
        option->setAutoExclusive(false); // they act as push buttons: never left marked
    encoded_ = new QLabel(frame3);
    encoded_->setObjectName("Lbl3");
    encoded_->setAutoFillBackground(true);
    encoded_->setAlignment(Qt::AlignCenter);
    encoded_->setMinimumWidth(fontMetrics().horizontalAdvance("WWWWWW"));
    setTextColour(encoded_, QPalette::Window, kEncodedBack);
    maxWord_ = new QLabel(tr("(Максимум 65535)"), frame3);
    maxWord_->setObjectName("Lbl4");
    maxByte_ = new QLabel("(255)", frame3);
    maxByte_->setObjectName("Lbl5");
    auto* encodeLayout = new QGridLayout(frame3);
    encodeLayout->addWidget(word_, 0, 0);
    encodeLayout->addWidget(maxWord_, 0, 1);
    encodeLayout->addWidget(byte_, 1, 0);
    encodeLayout->addWidget(maxByte_, 1, 1);
    encodeLayout->addWidget(encoded_, 0, 2, 2, 1);

    replace_ = new QPushButton(tr("&Заменить"), this);
    replace_->setObjectName("Com1");
    apply_ = new QPushButton(tr("&Применить"), this);
    apply_->setObjectName("Com2");
    close_ = new QPushButton(tr("Закр&ыть"), this);
    close_->setObjectName("Com3");
    for (QPushButton* button : {replace_, apply_, close_})
        button->setAutoDefault(false); // Enter belongs to the entry: it encodes
    replace_->setEnabled(false);
    apply_->setEnabled(false);

    popup_ = new QMenu(this);
    popup_->setObjectName("nPopUp");
    for (std::size_t i = 0; i < kListMenus.size(); ++i) {
        const ListMenu& menu = kListMenus[i];
        QAction* action = popup_->addAction(menu.caption);
        action->setObjectName("n" + QString::number(i + 1));
        connect(action, &QAction::triggered, this, [this, key = menu.key] { showCodes(key); });
    }

    auto* right = new QVBoxLayout;
    right->addWidget(frame2);
    right->addWidget(entry_);
    right->addWidget(meaning_);
    right->addWidget(frame3);
    right->addStretch(1);
    auto* inner = new QHBoxLayout(frame1);
    inner->addWidget(list_, 1);
    inner->addLayout(right, 2);
    inner->addWidget(scroll_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(replace_);
    buttons->addWidget(apply_);
    buttons->addWidget(close_);
    auto* outer = new QVBoxLayout(this);
    outer->addWidget(frame1, 1);
    outer->addLayout(buttons);

    setTabOrder(entry_, word_);
    setTabOrder(word_, byte_);
    setTabOrder(byte_, replace_);
    setTabOrder(replace_, apply_);
    setTabOrder(apply_, close_);
    setTabOrder(close_, list_);
    setTabOrder(list_, scroll_);
    entry_->setFocus();

    connect(list_, &QListWidget::currentRowChanged, this, &EditDialog::selectRow);
    connect(entry_, &QLineEdit::textChanged, this, &EditDialog::entryEdited);
    connect(word_, &QRadioButton::clicked, this, [this] { encode(FieldWidth::Word); });
    connect(byte_, &QRadioButton::clicked, this, [this] { encode(FieldWidth::Byte); });
    connect(replace_, &QPushButton::clicked, this, &EditDialog::replace);
    connect(apply_, &QPushButton::clicked, this, &EditDialog::apply);
    connect(close_, &QPushButton::clicked, this, &QDialog::reject);
    connect(scroll_, &QScrollBar::valueChanged, &codes_, &CodeListPane::showRow);

    // Every control reports its mouse moves (the hover look of Lbl4, Lbl5 and Img)
    // and its keys (F3-F9, B and W, whichever control has the focus).
    installEventFilter(this);
    setMouseTracking(true);
    for (QWidget* child : findChildren<QWidget*>()) {
        child->installEventFilter(this);
        child->setMouseTracking(true);
    }
}

// ---------------------------------------------------------------- showing the model

void EditDialog::showModel() {
    setWindowTitle(q(editor_.caption(session_.options().language)));
    hex_->setText(q(editor_.currentHex()));
    decimal_->setText(QString::number(editor_.currentValue()));
    const bool word = editor_.mode() == FieldWidth::Word;
    word_->setEnabled(word);
    byte_->setEnabled(!word);
    if (entry_->text() != q(editor_.entry())) {
        const QSignalBlocker quiet(entry_);
        entry_->setText(q(editor_.entry()));
    }
    setTextColour(entry_, QPalette::Text,
                  editor_.entryOutOfRange() ? kOutOfRange
                                            : QApplication::palette().color(QPalette::Text));
    meaning_->setText(q(editor_.entryMeaning()));
    encoded_->setText(q(editor_.encodedText()));
    replace_->setEnabled(editor_.canReplace());
    apply_->setEnabled(editor_.canApply());
}

void EditDialog::selectRow(int row) {
    if (row < 0)
        return;
    editor_.selectRow(row);
    showModel();
}

void EditDialog::entryEdited(const QString& text) {
    if (!editor_.setEntry(text.toStdString()))
        prompts_.beep(); // no number at all: the text is gone
    showModel();
}

void EditDialog::encode(FieldWidth mode) {
    word_->setChecked(false);
    byte_->setChecked(false);
    if (editor_.encode(mode) == session::ByteEditor::Encoding::Refused)
        prompts_.beep();
    showModel();
}

void EditDialog::replace() {
    editor_.replace();
    showModel();
}

void EditDialog::apply() {
    if (!editor_.canApply())
        return;
    if (!editor_.apply()) {
        prompts_.message(session::UserPrompts::Icon::Critical, kMessageTitle,
                         tr("Ошибка при обновлении записи"));
        reject();
        return;
    }
    showModel();
}

// ---------------------------------------------------------------- code lists

// At opening, VS takes its place from the list the main window already shows.
void EditDialog::takeListPosition() {
    if (codes_.count() == 0)
        return;
    const QSignalBlocker quiet(scroll_);
    scroll_->setEnabled(true);
    scroll_->setMaximum(codes_.count() - 1);
    if (const auto first = codes_.firstSelectedRow())
        scroll_->setValue(*first);
}

void EditDialog::showCodes(ListKey key) {
    codes_.showList(key);
    scroll_->setEnabled(true);
    codes_.showRow(0);
    const QSignalBlocker quiet(scroll_);
    scroll_->setMaximum(std::max(0, codes_.count() - 1));
    scroll_->setValue(0);
}

void EditDialog::popUpCodes() {
    resetHover(true);
    popup_->exec(QCursor::pos());
    image_->setFrameShape(QFrame::NoFrame);
}

// ---------------------------------------------------------------- the greatest values

void EditDialog::offerMaximum(FieldWidth mode, Qt::MouseButton button) {
    const auto offered = editor_.offeredMaximum(mode);
    if (!offered)
        return; // the other mode's label is plain text
    if (button == Qt::LeftButton) {
        clipboard_.clearIfOurs();
        if (editor_.enterMaximum(mode) == session::ByteEditor::Encoding::Refused)
            prompts_.beep();
        showModel();
    } else {
        clipboard_.put(q(*offered));
    }
}

void EditDialog::hoverMaximum(QLabel* label, FieldWidth mode) {
    image_->setFrameShape(QFrame::NoFrame);
    const bool active = editor_.offeredMaximum(mode).has_value();
    setTextColour(label, QPalette::WindowText,
                  active ? kOffered : QApplication::palette().color(QPalette::ButtonText));
    label->setToolTip(active ? tr("Л. Клик-вставить; П. Клик-копировать в буфер") : QString());
}

void EditDialog::resetHover(bool imageBorder) {
    for (QLabel* label : {maxWord_, maxByte_})
        setTextColour(label, QPalette::WindowText,
                      QApplication::palette().color(QPalette::ButtonText));
    image_->setFrameShape(imageBorder ? QFrame::Box : QFrame::NoFrame);
}

// ---------------------------------------------------------------- keys and the mouse

// F3-F9 and the letters B and W, seen before the control with the focus. Letters
// are taken by their place on the keyboard, whatever layout is active.
bool EditDialog::previewKey(QKeyEvent* key) {
    const int k = key->key();
    if (k >= Qt::Key_F3 && k <= Qt::Key_F9) {
        showCodes(kListMenus[static_cast<std::size_t>(k - Qt::Key_F3)].key);
        return true;
    }
    const int latin = latinKey(k, key->nativeScanCode(), key->nativeVirtualKey(),
                               keySourceFor(QGuiApplication::platformName()));
    if (latin == Qt::Key_B && byte_->isEnabled())
        encode(FieldWidth::Byte);
    else if (latin == Qt::Key_W && word_->isEnabled())
        encode(FieldWidth::Word);
    return false; // the entry still drops the letter itself
}

// The entry takes digits and Backspace; Enter encodes; every other character,
// control characters among them, is dropped. Keys that type nothing (arrows,
// Delete, Home, Escape, Tab) work as usual.
bool EditDialog::filterEntryKey(QKeyEvent* key) {
    const QString text = key->text();
    if (text.isEmpty())
        return false;
    // Escape closes the dialog and Tab moves on: they are not typing.
    if (key->key() == Qt::Key_Escape || key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab)
        return false;
    switch (entry::keyEffect(text.at(0).unicode())) {
    case entry::KeyEffect::Pass:
        return false;
    case entry::KeyEffect::Encode:
        encode(editor_.mode());
        return true;
    case entry::KeyEffect::Drop:
        return true;
    }
    return true;
}

bool EditDialog::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress: {
        // A key not taken by the focus widget travels on to its parents: look once.
        QWidget* focus = QApplication::focusWidget();
        if (watched != (focus ? focus : this))
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (previewKey(key))
            return true;
        return watched == entry_ && filterEntryKey(key);
    }
    case QEvent::MouseMove: {
        // A move that a label does not take travels on to its parents: only the
        // control under the mouse counts.
        const auto* move = static_cast<QMouseEvent*>(event);
        QWidget* under = childAt(mapFromGlobal(move->globalPosition().toPoint()));
        if (watched != (under ? under : this))
            return false;
        if (watched == maxWord_)
            hoverMaximum(maxWord_, FieldWidth::Word);
        else if (watched == maxByte_)
            hoverMaximum(maxByte_, FieldWidth::Byte);
        else if (watched == image_) {
            resetHover(true);
            image_->setToolTip(session_.options().toolTips ? tr("Смотреть коды") : QString());
        } else
            resetHover(false);
        return false;
    }
    case QEvent::MouseButtonPress: {
        const auto button = static_cast<QMouseEvent*>(event)->button();
        if (watched == maxWord_)
            offerMaximum(FieldWidth::Word, button);
        else if (watched == maxByte_)
            offerMaximum(FieldWidth::Byte, button);
        else if (watched == image_)
            popUpCodes();
        return false;
    }
    default:
        return QDialog::eventFilter(watched, event);
    }
}

// ---------------------------------------------------------------- closing

void EditDialog::done(int result) {
    if (closing_)
        return;
    closing_ = true;
    clipboard_.clearIfOurs();
    maxWord_->setToolTip({});
    maxByte_->setToolTip({});
    if (session_.options().animationOff || !isVisible()) {
        QDialog::done(result);
        return;
    }
    shrinkAway(this, kCloseMilliseconds, [this, result] { QDialog::done(result); });
}

} // namespace parlex::gui
