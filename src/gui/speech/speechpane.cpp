#include "gui/speech/speechpane.h"

#include "core/settings/options.h"
#include "gui/app/statuspanels.h"
#include "gui/speech/filepropwindow.h"
#include "session/speechdocument.h"

#include <QAction>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSet>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

using Step = session::SpeechDocument::Step;

const QColor kOverLimit{255, 0, 0};
constexpr int kPathSpare = 20; // pixels kept free beside the path in its panel

// The tool bar's captions and tool tips by the buttons' keys.
struct ButtonText {
    const char* key;
    const char* label;
    const char* tip;
};
constexpr ButtonText kButtonTexts[] = {
    {"Open", QT_TRANSLATE_NOOP("SpeechPane", "Открыть"),
     QT_TRANSLATE_NOOP("SpeechPane", "Открыть EDT файл...")},
    {"New", QT_TRANSLATE_NOOP("SpeechPane", "Создать"),
     QT_TRANSLATE_NOOP("SpeechPane", "Создать EDT файл (Диалоги НПЦ)")},
    {"SaveAs", QT_TRANSLATE_NOOP("SpeechPane", "Сохранить"),
     QT_TRANSLATE_NOOP("SpeechPane", "Сохранить EDT файл")},
    {"Print", QT_TRANSLATE_NOOP("SpeechPane", "Текст"),
     QT_TRANSLATE_NOOP("SpeechPane", "Раскомпилировать (!!!только для (НПЦ).*EDT)")},
    {"Home", "|<", QT_TRANSLATE_NOOP("SpeechPane", "Перейти к началу")},
    {"Back", "<", QT_TRANSLATE_NOOP("SpeechPane", "Предыдущая фраза")},
    {"Next", ">", QT_TRANSLATE_NOOP("SpeechPane", "Следующая фраза")},
    {"End", ">|", QT_TRANSLATE_NOOP("SpeechPane", "Перейти в конец")},
    {"Info", "i", QT_TRANSLATE_NOOP("SpeechPane", "Информация о файле")},
    {"New_Rem", QT_TRANSLATE_NOOP("SpeechPane", "Комменнтарии НПЦ"), ""},
    {"New_Civ", QT_TRANSLATE_NOOP("SpeechPane", "Диалоги Гражданских"), ""},
};

QString translated(const char* text) {
    return *text ? QCoreApplication::translate("SpeechPane", text) : QString();
}

} // namespace

SpeechPane::SpeechPane(session::SpeechDocument& speech, QWidget* parent)
    : QWidget(parent), speech_(speech) {
    setMinimumWidth(257); // the splitter stops 3850 twips from the right
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    text_ = new QPlainTextEdit(this);
    text_->setObjectName("Txt");
    text_->setReadOnly(true); // locked until a speech document exists
    text_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    text_->installEventFilter(this);
    status_ = new StatusPanels("SBarD", 3, 3, this);
    status_->label(3)->installEventFilter(this); // the path is fitted anew on a resize

    // A row of tool buttons rather than a QToolBar: nothing here ever overflows,
    // and a tool bar's overflow button costs start-up time for an icon never shown.
    auto* bar = new QWidget(this);
    bar->setObjectName("TBar");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    const struct {
        const char* key;
        std::function<void()> run;
    } buttons[] = {
        {"Open", [this] { speech_.open(); }},
        {"New", [this] { speech_.newDocument(EdtKind::NpcDialogues); }},
        {"SaveAs", [this] { speech_.save(); }},
        {"Print", [this] { speech_.decompile(); }},
        {nullptr, {}},
        {"Home", [this] { speech_.step(Step::Home); }},
        {"Back", [this] { speech_.step(Step::Back); }},
        {"Next", [this] { speech_.step(Step::Next); }},
        {"End", [this] { speech_.step(Step::End); }},
        {nullptr, {}},
        {"Info", [this] { showProperties(); }},
    };
    for (const auto& b : buttons) {
        if (!b.key) {
            row->addSpacing(6);
            continue;
        }
        auto* action = new QAction(bar);
        action->setObjectName(QString("TBar_") + b.key);
        connect(action, &QAction::triggered, this, b.run);
        auto* button = new QToolButton(bar);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        button->installEventFilter(this); // tool tips only with the option on
        row->addWidget(button);
        if (QString(b.key) == "New") { // the other two kinds in its drop-down
            auto* kinds = new QMenu(button);
            kinds->addAction(QString(), this, [this] { speech_.newDocument(EdtKind::Remarks); })
                ->setObjectName("TBar_New_Rem");
            kinds->addAction(QString(), this, [this] { speech_.newDocument(EdtKind::Civilian); })
                ->setObjectName("TBar_New_Civ");
            button->setMenu(kinds);
            button->setPopupMode(QToolButton::MenuButtonPopup);
        }
    }
    row->addStretch(1);
    retranslate();
    // Narrower than its buttons the pane would clip their captions.
    setMinimumWidth(std::max(minimumWidth(), bar->sizeHint().width()));

    layout->addWidget(text_, 1);
    layout->addWidget(status_);
    layout->addWidget(bar);

    button("SaveAs")->setEnabled(false); // nothing to save yet
    button("Print")->setEnabled(false);  // nor to decompile
    connect(text_, &QPlainTextEdit::textChanged, this, &SpeechPane::textEdited);
    using D = session::SpeechDocument;
    connect(&speech_, &D::documentReplaced, this, &SpeechPane::showDocument);
    connect(&speech_, &D::phraseShown, this, &SpeechPane::showPhrase);
    connect(&speech_, &D::notOpen, this, [this] {
        notOpenShown_ = true;
        status_->setText(3, tr("Файл не открыт!"));
    });
}

void SpeechPane::retranslate() {
    for (const ButtonText& t : kButtonTexts) {
        if (QAction* action = button(t.key)) {
            action->setText(translated(t.label)); // the step arrows have no translation
            action->setToolTip(translated(t.tip));
        }
    }
    if (notOpenShown_ && !speech_.file())
        status_->setText(3, tr("Файл не открыт!"));
    showPath();
}

void SpeechPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        const auto* bar = findChild<QWidget*>("TBar");
        setMinimumWidth(std::max(257, bar ? bar->sizeHint().width() : 0));
    }
    QWidget::changeEvent(event);
}

QAction* SpeechPane::button(const QString& key) const {
    return findChild<QAction*>("TBar_" + key);
}

void SpeechPane::showProperties() {
    FilePropWindow window(speech_, !speech_.options().animationOff, this->window());
    window.exec();
}

void SpeechPane::applyStyle() {
    const Options& o = speech_.options();
    QPalette p = text_->palette();
    p.setColor(QPalette::Base, QColor::fromRgb(o.phraseBackColour));
    text_->setPalette(p);
    if (fontApplied_)
        applyFont();
}

void SpeechPane::applyFont() {
    fontApplied_ = true;
    const Options& o = speech_.options();
    QFont f(QString::fromStdString(o.phraseFont.family));
    f.setPointSizeF(o.phraseFont.pointSize);
    f.setBold(o.phraseFont.bold);
    f.setItalic(o.phraseFont.italic);
    text_->setFont(f);
}

void SpeechPane::showDocument() {
    if (!fontApplied_)
        applyFont();
    text_->setReadOnly(false); // unlocked for good by the first document
    button("Print")->setEnabled(speech_.canDecompile());
    showPath();
    showPhrase();
    text_->setFocus();
}

void SpeechPane::showPhrase() {
    const QString phrase = speech_.phraseText();
    if (text_->toPlainText() != phrase) {
        const QSignalBlocker quiet(text_);
        text_->setPlainText(phrase);
        text_->moveCursor(QTextCursor::End);
    }
    showCounters();
}

void SpeechPane::showCounters() {
    status_->setText(1, speech_.lengthCounter());
    status_->setText(2, speech_.phraseCounter());
    const bool over = text_->document()->characterCount() - 1 > speech_.textLimit();
    const QColor colour = over ? kOverLimit : palette().color(QPalette::Text);
    if (text_->palette().color(QPalette::Text) != colour) { // a new palette restyles the box
        QPalette p = text_->palette();
        p.setColor(QPalette::Text, colour);
        text_->setPalette(p);
    }
    button("SaveAs")->setEnabled(speech_.canSave());
}

void SpeechPane::showPath() {
    const EdtFile* file = speech_.file();
    if (!file)
        return;
    if (file->isNew()) {
        status_->setText(3, tr("Новый"));
        return;
    }
    status_->setPath(3, file->path(), kPathSpare);
}

// Every change of the text goes into the phrase; what the document refuses or
// changes (line breaks, characters outside the code page) comes back into the pane.
void SpeechPane::textEdited() {
    if (!speech_.file())
        return;
    const QString kept = speech_.editPhrase(text_->toPlainText());
    if (kept != text_->toPlainText()) {
        const QSignalBlocker quiet(text_);
        text_->setPlainText(kept);
        text_->moveCursor(QTextCursor::End);
    }
    showCounters();
}

// Keys that never reach the text: Enter (a phrase is one line), and the keys of
// the numeric pad that move through phrases and records, also while no script is
// open to take them. Pad 2, 5, 8 and 0 type their digits; with NumLock off the pad
// sends cursor keys, which edit as usual.
bool SpeechPane::swallowed(const QKeyEvent& key) {
    static const QSet<int> padCommands = {Qt::Key_1,        Qt::Key_3,     Qt::Key_4,
                                          Qt::Key_6,        Qt::Key_7,     Qt::Key_9,
                                          Qt::Key_Asterisk, Qt::Key_Plus,  Qt::Key_Minus,
                                          Qt::Key_Period,   Qt::Key_Comma, Qt::Key_Slash};
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return true;
    return key.modifiers().testFlag(Qt::KeypadModifier) && padCommands.contains(key.key());
}

bool SpeechPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == status_->label(3) && event->type() == QEvent::Resize)
        showPath();
    // The option is read at each hover, so a change takes effect at once.
    if (event->type() == QEvent::ToolTip && qobject_cast<QToolButton*>(watched))
        return !speech_.options().toolTips;
    if (watched == text_ && event->type() == QEvent::KeyPress)
        return swallowed(*static_cast<QKeyEvent*>(event));
    return QWidget::eventFilter(watched, event);
}

} // namespace parlex::gui
