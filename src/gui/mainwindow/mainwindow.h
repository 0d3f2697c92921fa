#pragma once

#include "core/association/fileassociation.h"
#include "core/codelists/codelist.h"
#include "gui/app/clipboardguard.h"
#include "gui/mainwindow/keymap.h"
#include "gui/settings/windowsettings.h"
#include "session/session.h"

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <optional>

class QLabel;
class QSlider;
class QSplitter;

namespace parlex::gui {

class ByteGrid;
class CodeListPane;
class ExplanationBar;
class HelpPanel;
class MainMenus;
class OverviewPane;
class SpeechPane;
class StatusPanels;

// The program's one window. It builds the controls, hands what the user does to the
// session and shows what the session reports; it keeps no document state itself.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(session::UserPrompts& prompts, std::filesystem::path programDir,
               QWidget* parent = nullptr);
    ~MainWindow() override;

    session::Session& session() { return session_; }
    ClipboardGuard& clipboard() { return clipboard_; }
    // Where key events' native codes come from; set from the platform at start.
    void setKeySource(KeySource source) { keySource_ = source; }

    session::UserPrompts& prompts() { return prompts_; }

    CodeListPane& codeList() { return *codes_; }
    // The window as its settings place it: the window, its two bars, the options.
    WindowParts settingsParts() {
        return {*this, *helpBar_, *paneBar_, session_,
                [this](bool make) { return overviewPane(make); }};
    }
    // The overview pane, or null; with `make` made and shown if there is none.
    OverviewPane* overviewPane(bool make);
    // The byte editor on a byte of the current record, or on the byte of the
    // position text; nothing happens while no record is shown.
    void openEditor(std::optional<int> byteIndex);
    void openHelp();
    void showAbout();
    // The options dialog, with the desktop's file association (none: the box greyed).
    void openOptions();
    // Shows the overview of the whole script, made when first asked for, or hides it.
    void toggleOverview();
    void setAssociation(std::unique_ptr<FileAssociation> association) {
        association_ = std::move(association);
    }

    static constexpr int kMinWidth = 600; // 9000 x 7000 twips at 15 twips a pixel
    static constexpr int kMinHeight = 467;
    static constexpr int kOverviewHeight = 300; // added below for the overview pane
    static constexpr int kPathSpare = 47;       // pixels kept free beside the path in its panel
    static constexpr int kNameToolTip = 100;    // names wider than this get a tool tip

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override; // a new language: every text again
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    void wireMenus();
    void wireSession();

    void documentReplaced();
    void showRecord();
    void showField();
    void updateCommands();
    void updatePathPanel();
    void updateNamePanel();
    void run(Command command);
    bool handleKey(QObject* watched, QKeyEvent* key);

    session::UserPrompts& prompts_;
    session::Session session_;
    ClipboardGuard clipboard_;
    KeySource keySource_;
    std::unique_ptr<FileAssociation> association_;

    std::unique_ptr<MainMenus> menus_;
    QSlider* slider_ = nullptr;
    ByteGrid* grid_ = nullptr;
    HelpPanel* help_ = nullptr;
    ExplanationBar* explanation_ = nullptr;
    CodeListPane* codes_ = nullptr;
    QSplitter* helpBar_ = nullptr;
    QSplitter* paneBar_ = nullptr;
    SpeechPane* speech_ = nullptr;
    OverviewPane* overview_ = nullptr;
    StatusPanels* sbar_ = nullptr;
    StatusPanels* sbarInf_ = nullptr;
};

} // namespace parlex::gui
