#pragma once

#include "codelists/codelists.h"
#include "explain/explainer.h"
#include "mainwindow/keymap.h"
#include "npc/npcfile.h"
#include "prompts/userprompts.h"

#include <QMainWindow>
#include <filesystem>
#include <optional>

class QAction;
class QLabel;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QSlider;
class QSplitter;
class QToolBar;

namespace parlex::gui {

class ByteGrid;
class StatusPanels;

// The program's one window: the script, its byte grid and explanation, the code
// list, and the place of the speech pane. It holds the open script and turns the
// user's actions into calls of the core; every question goes through `prompts`.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    enum class SaveOutcome { Saved, Cancelled, Failed };

    MainWindow(UserPrompts& prompts, std::filesystem::path programDir, QWidget* parent = nullptr);
    ~MainWindow() override;

    // Start-up with the words of the command line (without the program's name).
    // Returns false when the program is to end at once (a help switch).
    bool start(const QStringList& arguments, const QString& programName);

    // The script commands, as the menus and keys call them.
    bool openFile();
    void newFile();
    SaveOutcome save();
    SaveOutcome saveAs();
    void convertLayout();
    void showCurrentInfo();
    void firstRecord();
    void lastRecord();
    void nextRecord();
    void previousRecord();
    void stepRecords(int delta); // Ctrl + numeric pad: five at a time, stopping at the ends
    void deleteRecord(bool standard);
    void copyRecord();
    void pasteRecord();
    void showList(ListKey key);
    void openHelp();
    void showAbout();

    // What the window shows, for those who drive it.
    const std::optional<NpcFile>& document() const { return npc_; }
    int position() const;
    bool isPinned() const { return pinned_; }
    const RecordBuffer& recordBuffer() const { return buffer_; }

    static constexpr int kMinWidth = 600; // 9000 x 7000 twips at 15 twips a pixel
    static constexpr int kMinHeight = 467;
    static constexpr int kPathSpare = 47;    // pixels kept free beside the path in its panel
    static constexpr int kNameToolTip = 100; // names wider than this get a tool tip

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Ask { Continue, Cancel };

    void buildMenus();
    void buildControls();
    QAction* addItem(QMenu* menu, const QString& name, const QString& caption,
                     const QString& hotKeys = {}, const QKeySequence& shortcut = {});
    QAction* action(const QString& name) const;

    Ask askSaveNpc();
    bool load(const std::filesystem::path& path, bool reload);
    void afterLoad();
    void showError(const Error& error);
    void setScriptCommandsEnabled();

    void sliderChanged();
    void hover(int index);
    void press(int index, Qt::MouseButton button);
    void showField(int index, const QColor& colour);
    void showPosition(int index);
    void explainField(int fieldIndex);
    void repaintCurrentByte();
    const NpcRecord* currentRecord() const;

    void updatePathPanel();
    void updateNamePanel();
    void runKey(KeyAction key);
    void speechNotOpen();
    void helpLabelClicked(Qt::MouseButton button);
    QString startFolder() const;

    UserPrompts& prompts_;
    std::filesystem::path programDir_;
    CodeLists lists_;
    std::optional<NpcFile> npc_;
    RecordBuffer buffer_;
    bool pinned_ = false;
    std::optional<int> positionByte_; // byte index of the position text, once written
    bool toolTips_ = false;
    bool showMessages_ = true;
    int helpFontSize_ = 8;
    int helpAlignment_ = 0; // 0 left, 1 right, 2 centre

    QSlider* slider_ = nullptr;
    ByteGrid* grid_ = nullptr;
    QLabel* help_ = nullptr;
    QLabel* info_ = nullptr;
    QLabel* remark_ = nullptr;
    QListWidget* list_ = nullptr;
    QPlainTextEdit* text_ = nullptr;
    QToolBar* speechBar_ = nullptr;
    QSplitter* helpSplitter_ = nullptr;
    QSplitter* paneSplitter_ = nullptr;
    StatusPanels* sbar_ = nullptr;
    StatusPanels* sbarInf_ = nullptr;
    StatusPanels* sbarD_ = nullptr;
    QMenu* popup_ = nullptr;
    QLabel* pathPanel_ = nullptr;
};

} // namespace parlex::gui
