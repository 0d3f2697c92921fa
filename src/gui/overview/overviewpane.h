#pragma once

// The whole script at a glance, beside the grid: the session's overview tables as two
// tabs ("Записи", "Фразы"), each with a filter line and "только с ошибками". A click
// or Enter on a record shows it on the grid; a click on a phrase shows it in the
// speech pane, a double click the first record that speaks it. The record on the grid
// is the row marked. Ctrl+C copies the rows chosen as tab-separated text;
// "Сохранить обзор..." writes both tables as an HTML page.
#include <QDockWidget>

#include <vector>

class QTableView;

namespace parlex::session {
class Overview;
class OverviewFilter;
class Session;
class UserPrompts;
} // namespace parlex::session

namespace parlex::gui {

class OverviewPane : public QDockWidget {
    Q_OBJECT
public:
    OverviewPane(session::Session& session, session::UserPrompts& prompts, QWidget* parent);
    ~OverviewPane() override;

    QTableView* records() const { return recordView_; }
    QTableView* phrases() const { return phraseView_; }
    int tab() const;
    void setTab(int tab);
    // The widths of a table's columns but the last, which takes the rest.
    std::vector<int> columnWidths(QTableView* view) const;
    void setColumnWidths(QTableView* view, const std::vector<int>& widths);

protected:
    void changeEvent(QEvent* event) override; // a new language: every text again

private:
    void retranslate();
    QWidget* makeTab(QTableView* view, session::OverviewFilter* filter, const QString& name);
    void showRecord(const QModelIndex& index);
    void showPhrase(const QModelIndex& index, bool record);
    void markPosition(int position);
    void copyRows(QTableView* view);

    session::Session& session_;
    session::Overview* overview_;
    session::OverviewFilter* recordFilter_;
    session::OverviewFilter* phraseFilter_;
    QTableView* recordView_;
    QTableView* phraseView_;
};

} // namespace parlex::gui
