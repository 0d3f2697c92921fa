#include "gui/overview/overviewpane.h"

#include "session/overview.h"
#include "session/session.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace parlex::gui {
namespace {

using session::SeverityRole;

// The rows' marks as the window shows marks: an error dark red, as in the explanation
// bar; a remark bold, as the remark behind a sentence; a phrase nobody speaks grey.
class Marked : public QIdentityProxyModel {
public:
    Marked(bool phrases, QObject* parent) : QIdentityProxyModel(parent), phrases_(phrases) {}
    QVariant data(const QModelIndex& index, int role) const override {
        const int severity = QIdentityProxyModel::data(index, SeverityRole).toInt();
        if (role == Qt::ForegroundRole && severity == 2)
            return QColor(192, 0, 0);
        if (role == Qt::ForegroundRole && severity == 1 && phrases_)
            return QColor(Qt::gray);
        if (role == Qt::FontRole && severity == 1 && !phrases_) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return QIdentityProxyModel::data(index, role);
    }

private:
    bool phrases_;
};

} // namespace

OverviewPane::OverviewPane(session::Session& session, session::UserPrompts& prompts,
                           QWidget* parent)
    : QDockWidget(parent), session_(session),
      overview_(
          new session::Overview(session.document(), session.speech(), session.codeLists(), this)),
      recordFilter_(new session::OverviewFilter(this)),
      phraseFilter_(new session::OverviewFilter(this)), recordView_(new QTableView),
      phraseView_(new QTableView) {
    setObjectName("Overview");
    recordFilter_->setSourceModel(&overview_->records());
    phraseFilter_->setSourceModel(&overview_->phrases());
    recordView_->setObjectName("OverviewRecords");
    phraseView_->setObjectName("OverviewPhrases");
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName("OverviewTabs");
    tabs->addTab(makeTab(recordView_, recordFilter_, "OverviewRecords"), QString());
    tabs->addTab(makeTab(phraseView_, phraseFilter_, "OverviewPhrases"), QString());
    auto* save = new QToolButton(tabs);
    save->setObjectName("OverviewSave");
    save->setAutoRaise(true);
    tabs->setCornerWidget(save);
    connect(save, &QToolButton::clicked, this, [this, &prompts] { overview_->saveHtml(prompts); });
    setWidget(tabs);
    retranslate();
    overview_->setLanguage(session.options().language);

    connect(recordView_, &QTableView::activated, this, &OverviewPane::showRecord);
    connect(recordView_, &QTableView::clicked, this, &OverviewPane::showRecord);
    connect(phraseView_, &QTableView::clicked, this,
            [this](const QModelIndex& index) { showPhrase(index, false); });
    connect(phraseView_, &QTableView::activated, this,
            [this](const QModelIndex& index) { showPhrase(index, false); });
    connect(phraseView_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { showPhrase(index, true); });
    connect(&session.cursor(), &session::RecordCursor::positionChanged, this,
            &OverviewPane::markPosition);
    // A row that comes back after a filter or a refresh is marked again.
    connect(recordFilter_, &QAbstractItemModel::layoutChanged, this,
            [this] { markPosition(session_.cursor().position()); });
    connect(recordFilter_, &QAbstractItemModel::modelReset, this,
            [this] { markPosition(session_.cursor().position()); });
    markPosition(session.cursor().position());
}

OverviewPane::~OverviewPane() = default;

void OverviewPane::retranslate() {
    setWindowTitle(tr("Обзор"));
    auto* tabs = findChild<QTabWidget*>("OverviewTabs");
    tabs->setTabText(0, tr("Записи"));
    tabs->setTabText(1, tr("Фразы"));
    findChild<QToolButton*>("OverviewSave")->setText(tr("Сохранить обзор..."));
    for (const QString name : {"OverviewRecords", "OverviewPhrases"}) {
        findChild<QLineEdit*>(name + "Find")->setPlaceholderText(tr("Найти слова..."));
        findChild<QCheckBox*>(name + "Marked")->setText(tr("только с ошибками"));
        findChild<QCheckBox*>(name + "All")
            ->setText(name == "OverviewPhrases" ? tr("все фразы") : tr("и пустые"));
        findChild<QAction*>(name + "Copy")->setText(tr("Копировать"));
    }
}

void OverviewPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        overview_->setLanguage(session_.options().language);
    }
    QDockWidget::changeEvent(event);
}

int OverviewPane::tab() const {
    return findChild<QTabWidget*>("OverviewTabs")->currentIndex();
}

void OverviewPane::setTab(int tab) {
    findChild<QTabWidget*>("OverviewTabs")->setCurrentIndex(tab);
}

std::vector<int> OverviewPane::columnWidths(QTableView* view) const {
    std::vector<int> widths;
    for (int column = 0; column + 1 < view->model()->columnCount(); ++column)
        widths.push_back(view->horizontalHeader()->sectionSize(column));
    return widths;
}

void OverviewPane::setColumnWidths(QTableView* view, const std::vector<int>& widths) {
    for (std::size_t column = 0; column < widths.size(); ++column)
        view->horizontalHeader()->resizeSection(static_cast<int>(column), widths[column]);
}

QWidget* OverviewPane::makeTab(QTableView* view, session::OverviewFilter* filter,
                               const QString& name) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(2, 2, 2, 2);
    auto* row = new QHBoxLayout;
    auto* words = new QLineEdit(page);
    words->setObjectName(name + "Find");
    words->setClearButtonEnabled(false);
    auto* marked = new QCheckBox(page);
    marked->setObjectName(name + "Marked");
    // Empty records, or every phrase of the file, on demand.
    const bool phrases = filter == phraseFilter_;
    auto* whole = new QCheckBox(page);
    whole->setObjectName(name + "All");
    row->addWidget(words, 1);
    row->addWidget(marked);
    row->addWidget(whole);
    connect(whole, &QCheckBox::toggled, overview_,
            phrases ? &session::Overview::setAllPhrases : &session::Overview::setWithEmpty);
    layout->addLayout(row);
    layout->addWidget(view, 1);
    connect(words, &QLineEdit::textChanged, filter, &session::OverviewFilter::setWords);
    connect(marked, &QCheckBox::toggled, filter, &session::OverviewFilter::setOnlyMarked);

    view->setModel(new Marked(filter == phraseFilter_, view));
    qobject_cast<QIdentityProxyModel*>(view->model())->setSourceModel(filter);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setWordWrap(false);
    view->verticalHeader()->hide();
    view->verticalHeader()->setDefaultSectionSize(view->fontMetrics().height() + 6);
    view->horizontalHeader()->setStretchLastSection(true);
    // Room for the words of each column; the last one takes what is left.
    setColumnWidths(view, filter == phraseFilter_ ? std::vector{50, 360, 60}
                                                  : std::vector{50, 260, 200, 220});
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* copy = new QAction(view);
    copy->setObjectName(name + "Copy");
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(copy, &QAction::triggered, this, [this, view] { copyRows(view); });
    return page;
}

void OverviewPane::showRecord(const QModelIndex& index) {
    if (index.isValid())
        session_.cursor().setPosition(index.data(session::NumberRole).toInt());
}

void OverviewPane::showPhrase(const QModelIndex& index, bool record) {
    if (!index.isValid())
        return;
    const int phrase = index.data(session::NumberRole).toInt();
    session_.speech().showPhrase(phrase);
    if (!record)
        return;
    for (const auto& row : overview_->phrases().rows())
        if (row.number == phrase && !row.spokenBy.empty())
            session_.cursor().setPosition(row.spokenBy.front());
}

void OverviewPane::markPosition(int position) {
    const int source = overview_->records().rowOf(position);
    const QModelIndex shown = recordFilter_->mapFromSource(overview_->records().index(source, 0));
    auto* marked = static_cast<QIdentityProxyModel*>(recordView_->model());
    const QModelIndex row = marked->mapFromSource(shown);
    auto* selection = recordView_->selectionModel();
    if (!row.isValid()) {
        selection->clearSelection();
        return;
    }
    selection->select(row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    recordView_->scrollTo(row);
}

// The rows chosen, each a line of tab-separated cells, for a spreadsheet.
void OverviewPane::copyRows(QTableView* view) {
    QStringList lines;
    const QAbstractItemModel* model = view->model();
    QModelIndexList rows = view->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    for (const QModelIndex& row : rows) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells << model->index(row.row(), column).data().toString();
        lines << cells.join('\t');
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join('\n') + '\n');
}

} // namespace parlex::gui
