#include "gui/codes/codelistpane.h"

#include "session/listlibrary.h"

#include <QApplication>
#include <QEvent>

namespace parlex::gui {

CodeListPane::CodeListPane(session::ListLibrary& lists, QWidget* parent)
    : QListWidget(parent), lists_(lists) {
    setObjectName("List");
    setMinimumWidth(33);       // the splitter stops 500 twips from the left
    setUniformItemSizes(true); // thousands of one-line rows: no measuring each
}

void CodeListPane::showList(ListKey key) {
    shown_ = key;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::vector<std::string> rows = lists_.rows(key);
    QStringList items;
    items.reserve(static_cast<qsizetype>(rows.size()));
    for (const auto& row : rows)
        items << QString::fromStdString(row);
    setUpdatesEnabled(false);
    clear();
    addItems(items);
    setUpdatesEnabled(true);
    QApplication::restoreOverrideCursor();
}

void CodeListPane::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange && shown_) {
        const int row = currentRow();
        showList(*shown_);
        if (row >= 0)
            showRow(row);
    }
    QListWidget::changeEvent(event);
}

void CodeListPane::showRow(int row) {
    setCurrentRow(row);
    if (QListWidgetItem* shown = item(row))
        scrollToItem(shown, QAbstractItemView::PositionAtTop);
}

std::optional<int> CodeListPane::firstSelectedRow() const {
    std::optional<int> first;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        if (!first || index.row() < *first)
            first = index.row();
    return first;
}

} // namespace parlex::gui
