#pragma once

// The overview of the open script and speech file as two tables a view can show:
// a row of words for every record and a row for every phrase, computed by the core
// (the same rows as `parlex-cli overview`) and kept in step with every change. A
// record that changes refreshes its own row and the phrases it speaks; a phrase that
// is typed refreshes its row and the records that speak it; only the rows that
// changed are told as changed.
#include "core/mod/overview.h"
#include "core/text/language.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace parlex {
class CodeLists;
}

namespace parlex::session {

class ScriptDocument;
class SpeechDocument;
class UserPrompts;

// What a row holds for a view beyond its texts.
enum OverviewRole {
    SeverityRole = Qt::UserRole + 1, // 0 nothing to see, 1 a remark or mark, 2 an error
    NumberRole,                      // the record's position or the phrase's number
};

class RecordTable : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Position, When, Does, Says, Findings, ColumnCount };
    using QAbstractTableModel::QAbstractTableModel;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const std::vector<mod::RecordRow>& rows() const { return rows_; }
    void setRows(std::vector<mod::RecordRow> rows);
    // The row of a record that changed: replaced, added, or taken out when `shown` is
    // false; told only when it differs.
    void updateRow(mod::RecordRow row, bool shown);
    int rowOf(int position) const; // -1: no row

private:
    std::vector<mod::RecordRow> rows_;
};

class PhraseTable : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Number, Text, Length, SpokenBy, ColumnCount };
    using QAbstractTableModel::QAbstractTableModel;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const std::vector<mod::PhraseRow>& rows() const { return rows_; }
    // New rows: where only some rows differ from those shown, only those are told.
    void setRows(std::vector<mod::PhraseRow> rows);

private:
    std::vector<mod::PhraseRow> rows_;
};

// Narrows a table to the rows whose texts hold every word typed (in any case, "ё" as
// "е"), and, when asked, to the rows with something to see.
class OverviewFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void setWords(const QString& words);
    void setOnlyMarked(bool only);
    static QString folded(const QString& text); // lower case, "ё" as "е"

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QStringList words_;
    bool onlyMarked_ = false;
};

// Both tables over the session's documents.
class Overview : public QObject {
    Q_OBJECT
public:
    Overview(const ScriptDocument& script, const SpeechDocument& speech, const CodeLists& lists,
             QObject* parent = nullptr);

    RecordTable& records() { return records_; }
    PhraseTable& phrases() { return phrases_; }
    void setWithEmpty(bool withEmpty);   // empty records too
    void setAllPhrases(bool all);        // every phrase, not only the filled or spoken
    void rebuild();                      // everything anew
    void setLanguage(Language language); // of the rows' sentences and the headings
    // Writes both tables as an HTML page to a file the user chooses (beside the script
    // at first), atomically like every save; a failure is told. False when nothing
    // was written.
    bool saveHtml(UserPrompts& prompts) const;

private:
    mod::SpeechSource source() const;
    void recordChanged(int index);
    void phraseShown();
    void refreshPhrases();

    const ScriptDocument& script_;
    const SpeechDocument& speech_;
    const CodeLists& lists_;
    RecordTable records_;
    PhraseTable phrases_;
    bool withEmpty_ = false;
    bool allPhrases_ = false;
    int phrasesOnDisk_ = 0; // of the speech file when it was read
    Language language_ = Language::Russian;
};

} // namespace parlex::session
