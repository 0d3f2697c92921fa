#include "gui/codes/codelistpane.h"

#include "session/listlibrary.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QListWidget>
#include <QVBoxLayout>

namespace parlex::gui {
namespace {

// Assistive technology meets an empty list where the pane stands in for one; once
// the list widget is made, the pane is only what holds it.
class PaneAccessible : public QAccessibleWidget {
public:
    explicit PaneAccessible(QWidget* pane) : QAccessibleWidget(pane) {}
    QAccessible::Role role() const override {
        return widget()->findChild<QListWidget*>() ? QAccessible::Pane : QAccessible::List;
    }
};

QAccessibleInterface* paneFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(CodeListPane::staticMetaObject.className()))
        return nullptr;
    return new PaneAccessible(static_cast<QWidget*>(object));
}

} // namespace

CodeListPane::CodeListPane(session::ListLibrary& lists, QWidget* parent)
    : QFrame(parent), lists_(lists) {
    setObjectName("List");
    setMinimumWidth(33); // the splitter stops 500 twips from the left
    // Drawn as an empty list until the list widget takes its place.
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    static const bool installed = [] {
        QAccessible::installFactory(paneFactory);
        return true;
    }();
    (void)installed;
}

QListWidget& CodeListPane::rows() {
    if (rows_)
        return *rows_;
    rows_ = new QListWidget(this);
    rows_->setUniformItemSizes(true); // thousands of one-line rows: no measuring each
    setFrameStyle(QFrame::NoFrame);   // the list draws its own frame from now on
    setAutoFillBackground(false);
    layout()->addWidget(rows_);
    const bool focused = hasFocus();
    setFocusProxy(rows_);
    if (focused)
        rows_->setFocus();
    return *rows_;
}

int CodeListPane::count() const {
    return rows_ ? rows_->count() : 0;
}

void CodeListPane::showList(ListKey key) {
    shown_ = key;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::vector<std::string> lines = lists_.rows(key);
    QStringList items;
    items.reserve(static_cast<qsizetype>(lines.size()));
    for (const auto& line : lines)
        items << QString::fromStdString(line);
    QListWidget& list = rows();
    list.setUpdatesEnabled(false);
    list.clear();
    list.addItems(items);
    list.setUpdatesEnabled(true);
    QApplication::restoreOverrideCursor();
}

void CodeListPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange && shown_) {
        const int row = rows_->currentRow();
        showList(*shown_);
        if (row >= 0)
            showRow(row);
    }
    QFrame::changeEvent(event);
}

void CodeListPane::showRow(int row) {
    QListWidget& list = rows();
    list.setCurrentRow(row);
    if (QListWidgetItem* shown = list.item(row))
        list.scrollToItem(shown, QAbstractItemView::PositionAtTop);
}

std::optional<int> CodeListPane::firstSelectedRow() const {
    if (!rows_)
        return std::nullopt;
    std::optional<int> first;
    for (const QModelIndex& index : rows_->selectionModel()->selectedRows())
        if (!first || index.row() < *first)
            first = index.row();
    return first;
}

} // namespace parlex::gui
