#include "gui/settings/optionsdialog.h"

#include "gui/app/closeanimation.h"
#include "gui/app/placement.h"
#include "session/session.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

using session::OptionBox;

constexpr int kCloseMilliseconds = 300;

struct BoxText {
    OptionBox box;
    const char* name;
    const char* caption;
};
// Tab 1 holds Check alone; the others are tab 2's, in their order there.
constexpr BoxText kBoxes[] = {
    {OptionBox::Check, "Check", QT_TRANSLATE_NOOP("OptionsDialog", "Запрос перед заменой")},
    {OptionBox::CheckR, "CheckR",
     QT_TRANSLATE_NOOP("OptionsDialog", "Ассоциировать файлы *.npc с этой прграммой")},
    {OptionBox::CheckA, "CheckA",
     QT_TRANSLATE_NOOP("OptionsDialog", "Блокировать анимацию при закрытие окон")},
    {OptionBox::CheckH, "CheckH",
     QT_TRANSLATE_NOOP("OptionsDialog", "Показывать всплывающие подсказки (хинты)")},
    {OptionBox::CheckM, "CheckM",
     QT_TRANSLATE_NOOP("OptionsDialog", "Автоматически показывать текущую фразу")},
    {OptionBox::CheckS, "CheckS",
     QT_TRANSLATE_NOOP("OptionsDialog", "Определять имя edt-файла при открытии npc-файла")},
    {OptionBox::CheckS1, "CheckS1",
     QT_TRANSLATE_NOOP("OptionsDialog", "и сразу загружать если он есть в данной папке")},
    {OptionBox::CheckUS, "CheckUS",
     QT_TRANSLATE_NOOP("OptionsDialog", "Помнить путь последнего открытого EDT файла")},
};

struct ListButton {
    const char* name;
    const char* caption;
    ListKey key;
};
constexpr ListButton kListButtons[] = {
    {"ComReact", QT_TRANSLATE_NOOP("OptionsDialog", "&Реакций"), ListKey::R},
    {"ComAction", QT_TRANSLATE_NOOP("OptionsDialog", "&Воздействий"), ListKey::A},
    {"ComTrig", QT_TRANSLATE_NOOP("OptionsDialog", "&Триггеров"), ListKey::T},
    {"ComItem", QT_TRANSLATE_NOOP("OptionsDialog", "&Предметов"), ListKey::I},
    {"ComName", QT_TRANSLATE_NOOP("OptionsDialog", "&Имен"), ListKey::N},
    {"ComQi", QT_TRANSLATE_NOOP("OptionsDialog", "&Квестов (Принимаемых)"), ListKey::Qi},
    {"ComQo", QT_TRANSLATE_NOOP("OptionsDialog", "Квестов (&Завершенных)"), ListKey::Qo},
};

} // namespace

OptionsDialog::OptionsDialog(session::Session& session, FileAssociation* association,
                             QWidget* owner)
    : QDialog(owner), session_(session), model_(session, association) {
    setObjectName("Options");
    if (owner)
        setWindowIcon(owner->window()->windowIcon());
    build();
    retranslate();
    fitSize();
    if (owner) {
        const QScreen* screen = owner->screen();
        move(centredOver(owner->window()->frameGeometry(), frameSize(),
                         screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768)));
    }
}

void OptionsDialog::build() {
    auto* layout = new QVBoxLayout(this);
    tabs_ = new QTabBar(this);
    tabs_->setObjectName("TabStrip");
    tabs_->addTab(QString());
    tabs_->addTab(QString());
    tabs_->setExpanding(false);
    layout->addWidget(tabs_);

    frame_ = new QGroupBox(this);
    frame_->setObjectName("Frame1");
    auto* pages = new QVBoxLayout(frame_);
    auto* lists = new QGridLayout;
    pages->addLayout(lists);
    int index = 0;
    const auto addListButton = [&](const char* name, auto run) {
        auto* button = new QPushButton(frame_);
        button->setObjectName(name);
        button->setAutoDefault(false);
        lists->addWidget(button, index / 2, index % 2);
        ++index;
        connect(button, &QPushButton::clicked, this, [run] {
            QApplication::setOverrideCursor(Qt::WaitCursor);
            run();
            QApplication::restoreOverrideCursor();
        });
        listButtons_.push_back(button);
    };
    for (const auto& [name, caption, key] : kListButtons)
        addListButton(name, [this, k = key] { model_.extract(k); });
    addListButton("ComAll", [this] { model_.extractAll(); });
    allButton_ = listButtons_.back();
    for (const auto& [box, name, caption] : kBoxes) {
        auto* check = new QCheckBox(frame_);
        check->setObjectName(name);
        if (box == OptionBox::CheckS1) { // it belongs to the name rule above it
            auto* indented = new QHBoxLayout;
            indented->addSpacing(20);
            indented->addWidget(check, 1);
            pages->addLayout(indented);
        } else {
            pages->addWidget(check);
        }
        connect(check, &QCheckBox::clicked, this, [this, b = box](bool ticked) {
            model_.setTicked(b, ticked);
            showModel();
        });
        boxes_[static_cast<std::size_t>(box)] = check;
    }
    // The language of the window: named in both languages, so that either reader
    // finds it; it changes at once.
    auto* languageRow = new QHBoxLayout;
    languageLabel_ = new QLabel(QStringLiteral("Язык интерфейса / Interface language"), frame_);
    languageLabel_->setObjectName("LblLanguage");
    language_ = new QComboBox(frame_);
    language_->setObjectName("ComboLanguage");
    language_->addItem(QStringLiteral("Русский"));
    language_->addItem(QStringLiteral("English"));
    languageLabel_->setBuddy(language_);
    languageRow->addWidget(languageLabel_);
    languageRow->addWidget(language_);
    languageRow->addStretch(1);
    pages->addLayout(languageRow);
    connect(language_, &QComboBox::activated, this, [this](int index) {
        model_.setLanguage(index == 1 ? Language::English : Language::Russian);
    });
    pages->addStretch(1);
    layout->addWidget(frame_, 1);

    auto* ok = new QPushButton(this);
    closeButton_ = ok;
    ok->setObjectName("ComOK");
    ok->setAutoDefault(false);
    connect(ok, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok);
    layout->addLayout(buttons);

    connect(tabs_, &QTabBar::currentChanged, this, [this](int index) {
        model_.selectTab(index + 1);
        showModel();
    });
}

void OptionsDialog::showModel() {
    {
        const QSignalBlocker quiet(tabs_);
        tabs_->setCurrentIndex(model_.tab() - 1);
    }
    frame_->setTitle(model_.frameCaption());
    const bool listTab = model_.tab() == 1;
    for (auto* button : listButtons_)
        button->setVisible(listTab);
    languageLabel_->setVisible(!listTab);
    language_->setVisible(!listTab);
    language_->setCurrentIndex(model_.language() == Language::English ? 1 : 0);
    for (const auto& entry : kBoxes) {
        auto* check = boxes_[static_cast<std::size_t>(entry.box)];
        const auto state = model_.box(entry.box);
        check->setChecked(state.ticked);
        check->setEnabled(state.enabled);
        check->setVisible(model_.onShownTab(entry.box));
    }
}

void OptionsDialog::retranslate() {
    if (parentWidget())
        setWindowTitle(parentWidget()->window()->windowTitle() + " " + tr("Параметры..."));
    tabs_->setTabText(0, tr("Загрузка"));
    tabs_->setTabText(1, tr("Интерфейс"));
    for (std::size_t i = 0; i < std::size(kListButtons); ++i)
        listButtons_[i]->setText(
            QCoreApplication::translate("OptionsDialog", kListButtons[i].caption));
    allButton_->setText(tr("Извлечь всё"));
    for (const auto& [box, name, caption] : kBoxes)
        boxes_[static_cast<std::size_t>(box)]->setText(
            QCoreApplication::translate("OptionsDialog", caption));
    closeButton_->setText(tr("Закр&ыть"));
    frame_->setTitle(model_.frameCaption());
}

// Large enough for either tab, so that the dialog keeps its size when they change.
void OptionsDialog::fitSize() {
    const int shown = model_.tab();
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QSize size;
    for (int tab : {2, 1}) {
        model_.selectTab(tab);
        showModel();
        adjustSize();
        size = size.expandedTo(sizeHint());
    }
    model_.selectTab(shown);
    showModel();
    setFixedSize(size);
}

void OptionsDialog::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange && tabs_) {
        retranslate();
        fitSize(); // the other language's texts take another room
    }
    QDialog::changeEvent(event);
}

// Escape, the close button and the window's own close all end here.
void OptionsDialog::done(int result) {
    if (closing_)
        return;
    closing_ = true;
    model_.close();
    if (session_.options().animationOff || !isVisible()) {
        QDialog::done(result);
        return;
    }
    shrinkAway(this, kCloseMilliseconds, [this, result] { QDialog::done(result); });
}

} // namespace parlex::gui
