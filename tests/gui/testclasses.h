#pragma once

#include <QObject>

class KeyMapTest : public QObject {
    Q_OBJECT
private slots:
    void recordKeysNeedAnOpenScript();
    void numericPadIsToldApartFromOtherKeys();
    void f2SavesOnlyWithoutModifiers();
};

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void controlsAndMenusHaveTheirNamesAndStartStates();
    void commandLineSizesAndHelpSwitches();
    void openFromMenuShowsFileAndName();
    void jaPositionFiftyHasNoRecord();
    void hoverMarksTheFieldAndWritesPositionHelpAndSentence();
    void pinSurvivesRecordChangesAndMovesOnLeftClick();
    void alertAndRemarkAreShown();
    void keysReachTheMapFromAnyControl();
    void ctrlStepsOfFive();
    void saveQuestionAnswers();
    void closeAsksAndCancelKeepsTheWindow();
    void saveAsChangesTypeAfterReload();
    void readOnlyDriveMessageAndDialogLoop();
    void conversionOfTheOpenFileOntoItselfWithReload();
    void recordCommandsAndChangeTest();
    void listDisplayRowCounts();
    void pathIsShortenedAtNarrowWidth();
    void helpWithoutFileSaysSo();
    void helpLabelClicksCycleSizeAndAlignment();
};
