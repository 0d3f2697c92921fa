#include "speech/speechpane.h"

#include "mainwindow/statuspanels.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace parlex::gui {

SpeechPane::SpeechPane(QWidget* parent) : QWidget(parent) {
    setMinimumWidth(257); // the splitter stops 3850 twips from the right
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    text_ = new QPlainTextEdit(this);
    text_->setObjectName("Txt");
    text_->setReadOnly(true); // locked until a speech document exists
    text_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    status_ = new StatusPanels("SBarD", 3, 3, this);

    // A row of tool buttons rather than a QToolBar: nothing here ever overflows,
    // and a tool bar's overflow button costs start-up time for an icon never shown.
    auto* bar = new QWidget(this);
    bar->setObjectName("TBar");
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    const struct {
        const char* key;
        const char* label;
        const char* tip;
    } buttons[] = {
        {"Open", "Открыть", "Открыть EDT файл..."},
        {"New", "Создать", "Создать EDT файл (Диалоги НПЦ)"},
        {"SaveAs", "Сохранить", "Сохранить EDT файл"},
        {"Print", "Текст", "Раскомпилировать (!!!только для (НПЦ).*EDT)"},
        {nullptr, nullptr, nullptr},
        {"Home", "|<", "Перейти к началу"},
        {"Back", "<", "Предыдущая фраза"},
        {"Next", ">", "Следующая фраза"},
        {"End", ">|", "Перейти в конец"},
        {nullptr, nullptr, nullptr},
        {"Info", "i", "Информация о файле"},
    };
    for (const auto& b : buttons) {
        if (!b.key) {
            row->addSpacing(6);
            continue;
        }
        auto* action = new QAction(b.label, bar);
        action->setObjectName(QString("TBar_") + b.key);
        action->setToolTip(b.tip);
        action->setEnabled(false); // speech files come to the window in a later step
        auto* button = new QToolButton(bar);
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        row->addWidget(button);
    }
    row->addStretch(1);

    layout->addWidget(text_, 1);
    layout->addWidget(status_);
    layout->addWidget(bar);
}

void SpeechPane::showNotOpen() {
    status_->setText(3, "Файл не открыт!");
}

} // namespace parlex::gui
