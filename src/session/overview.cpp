#include "session/overview.h"

#include "core/platform/files.h"
#include "core/speech/edtfile.h"
#include "session/pathtext.h"
#include "session/scriptdocument.h"
#include "session/speechdocument.h"
#include "session/userprompts.h"

#include <algorithm>

#include <QCoreApplication>

namespace parlex::session {
namespace {

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

QString findingsText(const std::vector<mod::Finding>& findings) {
    QStringList lines;
    for (const auto& f : findings)
        lines << q((f.severity == mod::Severity::Error ? "! " : "") + f.message);
    return lines.join('\n');
}

int severityOf(const mod::RecordRow& row) {
    int worst = 0;
    for (const auto& f : row.findings)
        worst = std::max(worst, f.severity == mod::Severity::Error ? 2 : 1);
    return worst;
}

// A phrase no record speaks is marked; one a record speaks that is empty or missing
// is wrong.
int severityOf(const mod::PhraseRow& row) {
    if (row.spokenBy.empty())
        return 1;
    return row.text.empty() ? 2 : 0;
}

QVariant header(const char* const* names, int section, Qt::Orientation orientation, int role) {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QCoreApplication::translate("Overview", names[section]);
}

} // namespace

// ---------------------------------------------------------------- records

int RecordTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RecordTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RecordTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case Position:
            return row.position;
        case When:
            return row.empty ? QCoreApplication::translate("Overview", "(пустая)") : q(row.when);
        case Does:
            return q(row.does);
        case Says:
            return q(row.says);
        case Findings:
            return row.findings.empty() ? QString() : QString::number(row.findings.size());
        default:
            return {};
        }
    case Qt::ToolTipRole:
        return index.column() == Findings ? findingsText(row.findings)
                                          : data(index, Qt::DisplayRole);
    case SeverityRole:
        return severityOf(row);
    case NumberRole:
        return row.position;
    default:
        return {};
    }
}

QVariant RecordTable::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const kNames[] = {
        QT_TRANSLATE_NOOP("Overview", "Запись"), QT_TRANSLATE_NOOP("Overview", "Когда"),
        QT_TRANSLATE_NOOP("Overview", "Что делает"), QT_TRANSLATE_NOOP("Overview", "Говорит"),
        QT_TRANSLATE_NOOP("Overview", "Замечания")};
    return header(kNames, section, orientation, role);
}

void RecordTable::setRows(std::vector<mod::RecordRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int RecordTable::rowOf(int position) const {
    const auto found = std::ranges::find(rows_, position, &mod::RecordRow::position);
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

void RecordTable::updateRow(mod::RecordRow row, bool shown) {
    const int at = rowOf(row.position);
    if (at >= 0 && !shown) {
        beginRemoveRows({}, at, at);
        rows_.erase(rows_.begin() + at);
        endRemoveRows();
    } else if (at >= 0) {
        auto& old = rows_[static_cast<std::size_t>(at)];
        if (old == row)
            return;
        old = std::move(row);
        emit dataChanged(index(at, 0), index(at, ColumnCount - 1));
    } else if (shown) {
        const auto place =
            std::ranges::lower_bound(rows_, row.position, {}, &mod::RecordRow::position);
        const int before = static_cast<int>(place - rows_.begin());
        beginInsertRows({}, before, before);
        rows_.insert(place, std::move(row));
        endInsertRows();
    }
}

// ---------------------------------------------------------------- phrases

int PhraseTable::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int PhraseTable::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PhraseTable::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        switch (index.column()) {
        case Number:
            return row.number;
        case Text:
            return row.present ? q(row.text)
                               : QCoreApplication::translate("Overview", "(нет в файле)");
        case Length:
            return QString("%1/%2").arg(row.length).arg(row.limit);
        case SpokenBy: {
            QStringList by;
            for (const int position : row.spokenBy)
                by << QString::number(position);
            return by.isEmpty() ? QString("-") : by.join(", ");
        }
        default:
            return {};
        }
    case SeverityRole:
        return severityOf(row);
    case NumberRole:
        return row.number;
    default:
        return {};
    }
}

QVariant PhraseTable::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const kNames[] = {
        QT_TRANSLATE_NOOP("Overview", "Фраза"), QT_TRANSLATE_NOOP("Overview", "Текст"),
        QT_TRANSLATE_NOOP("Overview", "Длина"), QT_TRANSLATE_NOOP("Overview", "Говорят записи")};
    return header(kNames, section, orientation, role);
}

void PhraseTable::setRows(std::vector<mod::PhraseRow> rows) {
    const bool sameNumbers =
        std::ranges::equal(rows, rows_, {}, &mod::PhraseRow::number, &mod::PhraseRow::number);
    if (!sameNumbers) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] == rows_[i])
            continue;
        rows_[i] = std::move(rows[i]);
        const int at = static_cast<int>(i);
        emit dataChanged(index(at, 0), index(at, ColumnCount - 1));
    }
}

// ---------------------------------------------------------------- the filter

QString OverviewFilter::folded(const QString& text) {
    return text.toLower().replace(QChar(0x0451), QChar(0x0435)); // ё -> е
}

void OverviewFilter::setWords(const QString& words) {
    words_ = folded(words).split(' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

void OverviewFilter::setOnlyMarked(bool only) {
    onlyMarked_ = only;
    invalidateFilter();
}

bool OverviewFilter::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const {
    const QAbstractItemModel* model = sourceModel();
    if (onlyMarked_ && model->index(sourceRow, 0, sourceParent).data(SeverityRole).toInt() == 0)
        return false;
    if (words_.isEmpty())
        return true;
    QString all;
    for (int column = 0; column < model->columnCount(sourceParent); ++column) {
        const QModelIndex cell = model->index(sourceRow, column, sourceParent);
        all += cell.data(Qt::DisplayRole).toString() + ' ' + cell.data(Qt::ToolTipRole).toString() +
               ' ';
    }
    all = folded(all);
    return std::ranges::all_of(words_, [&](const QString& word) { return all.contains(word); });
}

// ---------------------------------------------------------------- both tables

Overview::Overview(const ScriptDocument& script, const SpeechDocument& speech,
                   const CodeLists& lists, QObject* parent)
    : QObject(parent), script_(script), speech_(speech), lists_(lists) {
    connect(&script, &ScriptDocument::replaced, this, &Overview::rebuild);
    connect(&script, &ScriptDocument::recordChanged, this, &Overview::recordChanged);
    connect(&speech, &SpeechDocument::documentReplaced, this, &Overview::rebuild);
    connect(&speech, &SpeechDocument::phraseShown, this, &Overview::phraseShown);
    rebuild();
}

void Overview::setWithEmpty(bool withEmpty) {
    withEmpty_ = withEmpty;
    rebuild();
}

void Overview::setAllPhrases(bool all) {
    allPhrases_ = all;
    refreshPhrases();
}

mod::SpeechSource Overview::source() const {
    const EdtFile* file = speech_.file();
    if (!file)
        return {};
    // The phrases the file holds on disk, and those an unsaved edit has added.
    return {file, std::max(phrasesOnDisk_, static_cast<int>(file->recordsToWrite()))};
}

void Overview::setLanguage(Language language) {
    if (language == language_)
        return;
    language_ = language;
    rebuild();
}

void Overview::rebuild() {
    phrasesOnDisk_ = 0;
    if (const EdtFile* file = speech_.file(); file && !file->isNew())
        if (const auto size = platform::fileSize(file->path()))
            phrasesOnDisk_ = static_cast<int>(*size / file->info().recordSize);
    const NpcFile* npc = script_.file();
    records_.setRows(npc ? mod::recordRows(*npc, source(), lists_, withEmpty_, language_)
                         : std::vector<mod::RecordRow>{});
    refreshPhrases();
}

void Overview::refreshPhrases() {
    const NpcFile* npc = script_.file();
    phrases_.setRows(npc ? mod::phraseRows(*npc, source(), !allPhrases_)
                         : std::vector<mod::PhraseRow>{});
}

void Overview::recordChanged(int index) {
    const NpcFile* npc = script_.file();
    if (!npc)
        return;
    if (auto row = mod::recordRow(*npc, index + 1, source(), lists_, language_)) {
        const bool shown = withEmpty_ || !row->empty;
        records_.updateRow(std::move(*row), shown);
    }
    refreshPhrases();
}

// The pane shows another phrase, or its text changed: the phrase's row and the rows
// of the records that speak it follow.
void Overview::phraseShown() {
    const NpcFile* npc = script_.file();
    if (!npc || !speech_.file())
        return;
    refreshPhrases();
    const int phrase = speech_.phraseIndex();
    for (std::size_t i = 0; i < npc->recordCount(); ++i) {
        const auto spoken = spokenPhrases(npc->record(i));
        if (!spoken || !spoken->contains(phrase))
            continue;
        if (auto row = mod::recordRow(*npc, static_cast<int>(i) + 1, source(), lists_, language_))
            records_.updateRow(std::move(*row), true);
    }
}

bool Overview::saveHtml(UserPrompts& prompts) const {
    const NpcFile* npc = script_.file();
    if (!npc)
        return false;
    const UserPrompts::FileRequest request{tr("Сохранить обзор"),
                                           pathText(npc->path().parent_path()),
                                           pathText(npc->path().stem()) + ".html",
                                           {{"HTML (*.html)", "*.html", "html"}},
                                           1};
    const auto target = prompts.saveTarget(request);
    if (!target)
        return false;
    const std::string page = mod::overviewHtml(tr("Обзор %1").arg(q(npc->title())).toStdString(),
                                               records_.rows(), phrases_.rows(), language_);
    if (auto written = platform::writeFileAtomic(target->path, page); !written) {
        prompts.tell(written.error());
        return false;
    }
    return true;
}

} // namespace parlex::session
